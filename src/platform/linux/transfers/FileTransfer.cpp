#include "platform/linux/transfers/FileTransfer.h"

#include "platform/linux/transfers/ExclusiveRename.h"
#include "platform/linux/transfers/StagingFolder.h"
#include "platform/linux/transfers/TreeCopy.h"

#include <algorithm>
#include <fcntl.h>
#include <set>

namespace tavrel {

namespace {

using Failure = std::optional<std::string>;

std::string inQuotes(const std::string& name) {
  std::string result = "\"";
  for (const char each : name)
    result += static_cast<unsigned char>(each) < ' ' ? '?' : each;
  return result + "\"";
}

Failure failure(const std::string& name, const std::string& reason) {
  return inQuotes(name) + ": " + reason;
}

Failure failureOf(const std::string& name, std::error_code error) {
  return error ? failure(name, error.message()) : std::nullopt;
}

bool isName(const std::string& name) {
  return !name.empty() && name != "." && name != ".." &&
         name.find_first_of(std::string_view("/\0", 2)) == std::string::npos;
}

Failure checkNames(const std::vector<std::string>& names) {
  if (names.empty())
    return "no files given";
  std::set<std::string> seen;
  for (const std::string& name : names) {
    if (!isName(name))
      return failure(name, "not a file name");
    if (!seen.insert(name).second)
      return failure(name, "given twice");
  }
  return std::nullopt;
}

/// Open for reading where that is permitted, else as a path alone: a folder that may be entered and
/// written to but not listed will do.
FileDescriptor openFolder(const std::string& path) {
  if (!path.starts_with('/'))
    return FileDescriptor();
  FileDescriptor folder(::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (!folder.isOpen() && errno == EACCES)
    return FileDescriptor(::open(path.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
  return folder;
}

/// A folder and all those it is in, as far as that is permitted.
std::set<FileIdentity> withAncestors(int folder) {
  std::set<FileIdentity> result;
  FileDescriptor current(::dup(folder));
  while (current.isOpen() && result.insert(identityOf(current.get())).second)
    current = FileDescriptor(::openat(current.get(), "..", O_PATH | O_DIRECTORY | O_CLOEXEC));
  return result;
}

/// Renames a copy that we made. A folder whose copied permissions forbid writing cannot be moved,
/// so that it is made writable for the moment.
std::error_code renameCopy(NameInFolder from, NameInFolder to) {
  const FileDescriptor folder(
      ::openat(from.folder, from.name.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
  struct stat status = {};
  const bool isReadOnly =
      folder.isOpen() && ::fstat(folder.get(), &status) == 0 && (status.st_mode & S_IWUSR) == 0;
  if (isReadOnly)
    (void)::fchmod(folder.get(), (status.st_mode & 07777) | S_IWUSR);
  const std::error_code error = renameExclusively(from, to);
  if (isReadOnly)
    (void)::fchmod(folder.get(), status.st_mode & 07777);
  return error;
}

/// No error where folders cannot be synchronised, as on some shares.
std::error_code syncFolder(int folder) {
  const std::error_code error = outcome(::fsync(folder));
  return error == std::errc::invalid_argument || error == std::errc::bad_file_descriptor
             ? std::error_code()
             : error;
}

class Transfer {
public:
  Transfer(FileOperation operation, const std::string& source, const std::string& destination,
           std::string journal)
      : operation_(operation), sourcePath_(source), destinationPath_(destination),
        journal_(std::move(journal)), source_(openFolder(source)),
        destination_(openFolder(destination)) {}

  Failure run(const std::vector<std::string>& names) {
    if (!source_.isOpen() || !destination_.isOpen())
      return failure(source_.isOpen() ? destinationPath_ : sourcePath_, "not a folder we can use");
    if (const Failure refused = checkPlaces(names))
      return refused;
    Failure failed = operation_ == FileOperation::move ? renameAll(names) : std::nullopt;
    const std::vector<std::string>& toCopy =
        operation_ == FileOperation::move ? onOtherFileSystem_ : names;
    if (!failed && !toCopy.empty())
      failed = copyAll(toCopy);
    std::string problems = failed ? undo() : "";
    problems += clean();
    return failed || !problems.empty() ? failed.value_or("every file is in its place") + problems
                                       : failed;
  }

private:
  Failure checkPlaces(const std::vector<std::string>& names) const {
    const std::set<FileIdentity> inside = withAncestors(destination_.get());
    for (const std::string& name : names) {
      struct stat status = {};
      if (::fstatat(source_.get(), name.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0)
        return failureOf(name, lastError());
      if (S_ISDIR(status.st_mode) && inside.contains(identityOf(status)))
        return failure(name, "a folder cannot go into itself");
      if (::fstatat(destination_.get(), name.c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0)
        return failure(name, "there is one of that name already");
      if (errno != ENOENT)
        return failureOf(name, lastError());
    }
    return std::nullopt;
  }

  Failure renameAll(const std::vector<std::string>& names) {
    for (const std::string& name : names) {
      const std::error_code error =
          renameExclusively({source_.get(), name}, {destination_.get(), name});
      if (error == std::errc::cross_device_link)
        onOtherFileSystem_.push_back(name);
      else if (error)
        return failureOf(name, error);
      else
        renamed_.push_back(name);
    }
    return std::nullopt;
  }

  Failure copyAll(const std::vector<std::string>& names) {
    if (operation_ == FileOperation::move)
      for (const std::string& name : names)
        if (const auto error = confirmRemovable(source_.get(), name))
          return failure(name, "cannot be removed from its folder: " + error.message());
    copiesFolder_.emplace(destination_.get(), destinationPath_, Staged::copies, journal_);
    linksFolder_.emplace(destination_.get(), destinationPath_, Staged::copies, journal_);
    for (const auto* staging : {&copiesFolder_, &linksFolder_})
      if ((*staging)->error())
        return failureOf(destinationPath_, (*staging)->error());
    TreeCopy copy(copiesFolder_->folder(), linksFolder_->folder());
    for (const std::string& name : names)
      if (const auto error = copy.copy(source_.get(), name))
        return failureOf(name, error);
    // One call for all files. It also reports an error of a delayed write, as of a full disk.
    if (::syncfs(copiesFolder_->folder()) != 0)
      return failureOf(destinationPath_, lastError());
    if (const Failure failed = placeAll(names))
      return failed;
    return operation_ == FileOperation::move ? removeOriginals(names, copy) : std::nullopt;
  }

  Failure placeAll(const std::vector<std::string>& names) {
    for (const std::string& name : names) {
      struct stat status = {};
      if (::fstatat(copiesFolder_->folder(), name.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0)
        return failureOf(name, lastError());
      placed_.push_back({name, identityOf(status)}); // it may be, although an error is answered
      if (const auto error =
              renameCopy({copiesFolder_->folder(), name}, {destination_.get(), name}))
        return failureOf(name, error);
    }
    return failureOf(destinationPath_, syncFolder(destination_.get()));
  }

  /// Moves the originals to a hidden folder first, so that nobody changes them any more; when one
  /// was changed until then, the transfer fails.
  Failure removeOriginals(const std::vector<std::string>& names, const TreeCopy& copy) {
    originalsFolder_.emplace(source_.get(), sourcePath_, Staged::originals, journal_);
    if (originalsFolder_->error())
      return failureOf(sourcePath_, originalsFolder_->error());
    for (const std::string& name : names) {
      hiddenOriginals_.push_back(name); // it may be there although an error is answered
      if (const auto error =
              renameExclusively({source_.get(), name}, {originalsFolder_->folder(), name}))
        return failureOf(name, error);
    }
    for (const std::string& name : names)
      if (const auto error = copy.confirmUnchanged(originalsFolder_->folder(), name))
        return failure(name, "changed while it was copied: " + error.message());
    return removeHiddenOriginals();
  }

  /// From here on the copies are kept. Originals that cannot be removed are put back, and reported.
  Failure removeHiddenOriginals() {
    placed_.clear();
    for (const std::string& name : hiddenOriginals_)
      if (const auto error = removeTree(originalsFolder_->folder(), name))
        return failure(name, "moved, but not all could be removed from its old place: " +
                                 error.message());
    hiddenOriginals_.clear();
    return std::nullopt;
  }

  /// Puts everything back; the answer names what could not be.
  std::string undo() {
    std::string problems;
    for (auto name = hiddenOriginals_.rbegin(); name != hiddenOriginals_.rend(); ++name)
      putBack(*name, problems);
    for (auto copy = placed_.rbegin(); copy != placed_.rend(); ++copy)
      withdraw(*copy, problems);
    for (auto name = renamed_.rbegin(); name != renamed_.rend(); ++name)
      if (renameExclusively({destination_.get(), *name}, {source_.get(), *name}))
        problems += "; " + inQuotes(*name) + " stays in " + inQuotes(destinationPath_);
    return problems;
  }

  void putBack(const std::string& name, std::string& problems) {
    const NameInFolder hidden{originalsFolder_->folder(), name};
    if (renameExclusively(hidden, {source_.get(), name}) && !isGone(hidden))
      problems += "; " + inQuotes(name) + " is in " +
                  inQuotes(sourcePath_ + "/" + originalsFolder_->name());
  }

  /// What is left of the hidden folders.
  std::string clean() {
    std::string problems;
    for (auto* staging : {&copiesFolder_, &linksFolder_, &originalsFolder_})
      if (const std::string name = *staging ? (*staging)->name() : ""; !name.empty())
        if (const auto error = (*staging)->remove())
          problems += "; " +
                      inQuotes((staging == &originalsFolder_ ? sourcePath_ : destinationPath_) +
                               "/" + name) +
                      " could not be removed: " + error.message();
    return problems;
  }

  struct Placed {
    std::string name;
    FileIdentity identity;
  };

  /// Takes a copy away again, unless somebody put something else in its place, or its original is
  /// not where it was: then it may be the only one.
  void withdraw(const Placed& copy, std::string& problems) {
    struct stat status = {};
    const NameInFolder place{destination_.get(), copy.name};
    const bool isThere =
        ::fstatat(place.folder, copy.name.c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0;
    if (isThere && identityOf(status) != copy.identity)
      return;
    const bool hasOriginal =
        ::fstatat(source_.get(), copy.name.c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0;
    if (isThere && hasOriginal && !renameCopy(place, {copiesFolder_->folder(), copy.name}))
      return;
    if (!isGone(place))
      problems += "; a copy of " + inQuotes(copy.name) + " is in " + inQuotes(destinationPath_);
  }

  FileOperation operation_;
  std::string sourcePath_;
  std::string destinationPath_;
  std::string journal_;
  FileDescriptor source_;
  FileDescriptor destination_;
  std::vector<std::string> onOtherFileSystem_; ///< than the destination: to be copied
  std::optional<StagingFolder> copiesFolder_;
  std::optional<StagingFolder> linksFolder_;
  std::optional<StagingFolder> originalsFolder_;
  std::vector<std::string> renamed_;
  std::vector<Placed> placed_;
  std::vector<std::string> hiddenOriginals_;
};

} // namespace

std::optional<std::string> transferFiles(FileOperation operation, const std::string& source,
                                         const std::string& destination,
                                         const std::vector<std::string>& names,
                                         const std::string& journal) {
  if (const Failure refused = checkNames(names))
    return refused;
  return Transfer(operation, source, destination, journal).run(names);
}

} // namespace tavrel
