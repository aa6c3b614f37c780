#include "platform/linux/transfers/DirectoryTree.h"

#include <dirent.h>
#include <fcntl.h>
#include <memory>

namespace tavrel {

namespace {

constexpr int openFolderFlags = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;

class TreeWalk {
public:
  TreeWalk(int parent, TreeVisitor& visitor) : current_(::dup(parent)), visitor_(visitor) {}

  std::error_code run(const std::string& top) {
    std::error_code error = visit(top);
    while (!error && !open_.empty())
      error = open_.back().remaining.empty() ? ascend() : visitNext();
    return error;
  }

private:
  struct OpenFolder {
    std::string name;
    struct stat status;
    FileIdentity parent;
    std::vector<std::string> remaining;
  };

  std::error_code visitNext() {
    const std::string name = std::move(open_.back().remaining.back());
    open_.back().remaining.pop_back();
    return visit(name);
  }

  std::error_code visit(const std::string& name) {
    struct stat status = {};
    if (::fstatat(current_.get(), name.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0)
      return lastError();
    return S_ISDIR(status.st_mode) ? descend(name)
                                   : visitor_.visitFile(current_.get(), name, status);
  }

  std::error_code descend(const std::string& name) {
    visitor_.beforeOpeningFolder(current_.get(), name);
    FileDescriptor opened(::openat(current_.get(), name.c_str(), openFolderFlags));
    OpenFolder folder{name, {}, identityOf(current_.get()), {}};
    if (!opened.isOpen() || ::fstat(opened.get(), &folder.status) != 0)
      return lastError();
    if (const auto error =
            visitor_.enterFolder({current_.get(), name, folder.status, opened.get()}))
      return error;
    if (const auto error = readNames(opened.get(), folder.remaining))
      return error;
    open_.push_back(std::move(folder));
    current_ = std::move(opened);
    return {};
  }

  std::error_code ascend() {
    FileDescriptor parent(::openat(current_.get(), "..", O_PATH | O_DIRECTORY | O_CLOEXEC));
    if (!parent.isOpen())
      return lastError();
    const OpenFolder folder = std::move(open_.back());
    open_.pop_back();
    if (identityOf(parent.get()) !=
        folder.parent) // the folder was moved: its name is one in another folder now
      return std::make_error_code(std::errc::resource_unavailable_try_again);
    if (const auto error =
            visitor_.leaveFolder({parent.get(), folder.name, folder.status, current_.get()}))
      return error;
    current_ = std::move(parent);
    return {};
  }

  FileDescriptor current_;
  TreeVisitor& visitor_;
  std::vector<OpenFolder> open_;
};

class TreeRemover final : public TreeVisitor {
public:
  void beforeOpeningFolder(int parent, const std::string& name) override {
    ::fchmodat(parent, name.c_str(), S_IRWXU, 0);
  }
  std::error_code visitFile(int parent, const std::string& name, const struct stat&) override {
    return outcome(::unlinkat(parent, name.c_str(), 0));
  }
  std::error_code leaveFolder(const FolderEntry& folder) override {
    return outcome(::unlinkat(folder.parent, folder.name.c_str(), AT_REMOVEDIR));
  }
};

} // namespace

FileIdentity identityOf(int descriptor) {
  struct stat status = {};
  return ::fstat(descriptor, &status) == 0 ? identityOf(status) : FileIdentity();
}

std::error_code readNames(int folder, std::vector<std::string>& names) {
  const int own = ::openat(folder, ".", openFolderFlags);
  const std::unique_ptr<DIR, int (*)(DIR*)> stream(own < 0 ? nullptr : ::fdopendir(own),
                                                   [](DIR* each) { return ::closedir(each); });
  if (!stream)
    return lastError();
  errno = 0;
  while (const dirent* entry = ::readdir(stream.get())) {
    const std::string name = entry->d_name;
    if (name != "." && name != "..")
      names.push_back(name);
    errno = 0;
  }
  return errno == 0 ? std::error_code() : lastError();
}

std::error_code walkTree(int parent, const std::string& name, TreeVisitor& visitor) {
  return TreeWalk(parent, visitor).run(name);
}

std::error_code removeTree(int parent, const std::string& name) {
  TreeRemover remover;
  return walkTree(parent, name, remover);
}

} // namespace tavrel
