#include "platform/linux/transfers/TreeCopy.h"

#include "platform/linux/system/FileMetadata.h"
#include "platform/linux/transfers/FileCopy.h"

#include <fcntl.h>

namespace tavrel {

namespace {

FileStamp stampOf(const struct stat& status) {
  return {status.st_size, status.st_mtim.tv_sec, status.st_mtim.tv_nsec};
}

std::error_code changedWhileCopied() {
  return std::make_error_code(std::errc::resource_unavailable_try_again);
}

/// The temporary name for the first copy of a file that has several hard links.
std::string linkName(FileIdentity original) {
  return std::to_string(original.device) + "-" + std::to_string(original.inode);
}

} // namespace

class TreeCopy::Copier final : public TreeVisitor {
public:
  explicit Copier(TreeCopy& copy)
      : copy_(copy), own_(identityOf(copy.destination_)), folder_(::dup(copy.destination_)) {}

  std::error_code enterFolder(const FolderEntry& entry) override {
    if (identityOf(entry.status) == own_) // the destination was moved into its own source
      return std::make_error_code(std::errc::invalid_argument);
    if (::mkdirat(folder_.get(), entry.name.c_str(), S_IRWXU) != 0)
      return lastError();
    FileDescriptor made(::openat(folder_.get(), entry.name.c_str(),
                                 O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    if (!made.isOpen())
      return lastError();
    copy_.copied_[identityOf(entry.status)] = stampOf(entry.status);
    folder_ = std::move(made);
    return {};
  }

  std::error_code visitFile(int parent, const std::string& name,
                            const struct stat& status) override {
    const std::string shared = linkName(identityOf(status));
    const bool hasOtherNames = status.st_nlink > 1;
    if (hasOtherNames &&
        ::linkat(copy_.links_, shared.c_str(), folder_.get(), name.c_str(), 0) == 0)
      return {};
    if (const auto error = copyNode({parent, name}, status, {folder_.get(), name}))
      return error;
    if (hasOtherNames)
      (void)::linkat(folder_.get(), name.c_str(), copy_.links_, shared.c_str(), 0);
    copy_.copied_[identityOf(status)] = stampOf(status);
    return {};
  }

  /// Metadata comes last: it may forbid writing, and the times change while the folder fills.
  std::error_code leaveFolder(const FolderEntry& entry) override {
    FileDescriptor parent(
        ::openat(folder_.get(), "..", O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    if (!parent.isOpen())
      return lastError();
    if (const auto error = copyMetadata(entry.opened, entry.status, folder_.get()))
      return error;
    folder_ = std::move(parent);
    return {};
  }

private:
  TreeCopy& copy_;
  FileIdentity own_;
  FileDescriptor folder_; ///< where copies go now
};

class TreeCopy::Confirmer final : public TreeVisitor {
public:
  explicit Confirmer(const TreeCopy& copy) : copy_(copy) {}

  /// The times of a folder are not compared: some file systems change them when it is moved.
  std::error_code enterFolder(const FolderEntry& entry) override {
    return find(entry.status) == nullptr ? changedWhileCopied() : std::error_code();
  }
  std::error_code visitFile(int, const std::string&, const struct stat& status) override {
    const FileStamp* then = find(status);
    return then != nullptr && *then == stampOf(status) ? std::error_code() : changedWhileCopied();
  }
  std::error_code leaveFolder(const FolderEntry&) override { return {}; }

private:
  const FileStamp* find(const struct stat& status) const {
    const auto found = copy_.copied_.find(identityOf(status));
    return found == copy_.copied_.end() ? nullptr : &found->second;
  }

  const TreeCopy& copy_;
};

std::error_code TreeCopy::copy(int folder, const std::string& name) {
  Copier copier(*this);
  return walkTree(folder, name, copier);
}

std::error_code TreeCopy::confirmUnchanged(int folder, const std::string& name) const {
  Confirmer confirmer(*this);
  return walkTree(folder, name, confirmer);
}

namespace {

class RemovalCheck final : public TreeVisitor {
public:
  std::error_code enterFolder(const FolderEntry& folder) override {
    if (device_ == 0)
      device_ = folder.status.st_dev;
    if (folder.status.st_dev != device_)
      return std::make_error_code(std::errc::device_or_resource_busy);
    return check(folder.parent, folder.name, folder.status);
  }
  std::error_code visitFile(int parent, const std::string& name,
                            const struct stat& status) override {
    return check(parent, name, status);
  }
  std::error_code leaveFolder(const FolderEntry&) override { return {}; }

private:
  static std::error_code check(int parent, const std::string& name, const struct stat& status) {
    struct statx more = {};
    if (::statx(parent, name.c_str(), AT_SYMLINK_NOFOLLOW, 0, &more) == 0 &&
        (more.stx_attributes & (STATX_ATTR_IMMUTABLE | STATX_ATTR_APPEND)) != 0)
      return std::make_error_code(std::errc::operation_not_permitted);
    return mayRemove(parent, status) ? std::error_code()
                                     : std::make_error_code(std::errc::permission_denied);
  }

  /// The owner can make a folder writable first; in a sticky one only owners may remove.
  static bool mayRemove(int parent, const struct stat& status) {
    struct stat folder = {};
    const uid_t user = ::geteuid();
    if (user == 0)
      return true;
    if (::fstat(parent, &folder) != 0)
      return false;
    if (folder.st_uid == user)
      return true;
    const bool sticky = (folder.st_mode & S_ISVTX) != 0;
    return ::faccessat(parent, ".", W_OK | X_OK, AT_EACCESS) == 0 &&
           (!sticky || status.st_uid == user);
  }

  dev_t device_ = 0;
};

} // namespace

std::error_code confirmRemovable(int parent, const std::string& name) {
  RemovalCheck check;
  return walkTree(parent, name, check);
}

} // namespace tavrel
