#include "platform/linux/transfers/TransferJournal.h"

#include "platform/linux/system/UserFolders.h"
#include "platform/linux/transfers/DirectoryTree.h"
#include "platform/linux/transfers/ExclusiveRename.h"

#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sys/file.h>

namespace tavrel {

namespace {

constexpr const char* copiesMark = "copies\n";
constexpr const char* originalsMark = "originals\n";

FileDescriptor openFolder(int parent, const std::string& path, int flags = 0) {
  return FileDescriptor(::openat(parent, path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC | flags));
}

/// A folder that a killed program has left.
class Remains {
public:
  Remains(std::string parentPath, std::string name)
      : parentPath_(std::move(parentPath)), name_(std::move(name)),
        parent_(openFolder(AT_FDCWD, parentPath_)) {}

  /// Whether its place can be looked at: a share may not be mounted.
  [[nodiscard]] bool isReachable() const { return parent_.isOpen(); }
  [[nodiscard]] bool isGone() const { return tavrel::isGone({parent_.get(), name_}); }

  void removeCopies(std::vector<std::string>& said) const {
    const std::error_code error = removeTree(parent_.get(), name_);
    said.push_back(path() + (error ? ": could not be removed: " + error.message()
                                   : ": removed, copies of a transfer that was interrupted"));
  }

  void putOriginalsBack(std::vector<std::string>& said) const {
    const FileDescriptor hidden = openFolder(parent_.get(), name_, O_NOFOLLOW);
    std::vector<std::string> names;
    if (const auto error = outcome(hidden.get()); error || readNames(hidden.get(), names))
      said.push_back(path() + ": cannot be read");
    for (const std::string& name : names) {
      const auto error = renameExclusively({hidden.get(), name}, {parent_.get(), name});
      said.push_back(error ? path() + "/" + name + ": is still hidden: " + error.message()
                           : parentPath_ + "/" + name +
                                 ": is back, its move was interrupted after it was copied");
    }
    (void)::unlinkat(parent_.get(), name_.c_str(), AT_REMOVEDIR);
  }

private:
  [[nodiscard]] std::string path() const { return parentPath_ + "/" + name_; }

  std::string parentPath_;
  std::string name_;
  FileDescriptor parent_;
};

std::string contentsOf(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

void finish(const std::filesystem::path& entry, std::vector<std::string>& said) {
  const FileDescriptor file(::open(entry.c_str(), O_RDONLY | O_NOFOLLOW | O_CLOEXEC));
  if (!file.isOpen() || (::flock(file.get(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK))
    return; // its program lives
  const std::string text = contentsOf(entry);
  const bool areOriginals = text.starts_with(originalsMark);
  if (!areOriginals && !text.starts_with(copiesMark))
    return void(::unlink(entry.c_str())); // killed while it was written: nothing was made yet
  const Remains remains(text.substr(text.find('\n') + 1), entry.filename());
  if (!remains.isReachable())
    return;
  if (!remains.isGone())
    areOriginals ? remains.putOriginalsBack(said) : remains.removeCopies(said);
  if (remains.isGone())
    ::unlink(entry.c_str());
}

} // namespace

JournalEntry::JournalEntry(const std::string& journal, const std::string& name, Staged staged,
                           const std::string& parent)
    : path_(journal + "/" + name) {
  if (journal.empty())
    return;
  std::error_code ignored;
  std::filesystem::create_directories(journal, ignored);
  file_ = FileDescriptor(
      ::open(path_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR));
  const std::string text = (staged == Staged::originals ? originalsMark : copiesMark) + parent;
  if (!file_.isOpen())
    return;
  (void)::flock(file_.get(), LOCK_EX | LOCK_NB); // not every share of home folders has locks
  if (::write(file_.get(), text.data(), text.size()) > 0)
    (void)::fdatasync(file_.get());
}

void JournalEntry::strike() {
  if (file_.isOpen())
    ::unlink(path_.c_str());
  (void)file_.close();
}

std::string transferJournal() {
  return stateFolder() + "/tavrel/transfers";
}

std::vector<std::string> finishInterruptedTransfers(const std::string& journal) {
  std::vector<std::string> said;
  std::error_code none;
  for (std::filesystem::directory_iterator entry(journal, none), end; !none && entry != end;
       entry.increment(none))
    if (entry->path().filename().string().starts_with(".tavrel-transfer-"))
      finish(entry->path(), said);
  return said;
}

} // namespace tavrel
