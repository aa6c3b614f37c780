#include "platform/linux/transfers/ExclusiveRename.h"

#include "platform/linux/transfers/DirectoryTree.h"

#include <cstdio>
#include <fcntl.h>
#include <optional>

namespace tavrel {

namespace {

std::optional<struct stat> statusOf(NameInFolder place) {
  struct stat status = {};
  return ::fstatat(place.folder, place.name.c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0
             ? std::optional(status)
             : std::nullopt;
}

bool isSame(NameInFolder place, FileIdentity identity) {
  const auto status = statusOf(place);
  return status && identityOf(*status) == identity;
}

bool isUnsupported(std::error_code error) {
  return error == std::errc::invalid_argument || error == std::errc::function_not_supported ||
         error == std::errc::operation_not_supported ||
         error == std::errc::operation_not_permitted || error == std::errc::too_many_links;
}

/// Only the type is compared: some shares number their files anew when they are renamed.
std::error_code unlessMoved(std::error_code error, const struct stat& before, NameInFolder from,
                            NameInFolder to) {
  if (!error || !isGone(from))
    return error;
  const auto now = statusOf(to);
  return now && (now->st_mode & S_IFMT) == (before.st_mode & S_IFMT) ? std::error_code() : error;
}

/// A hard link under the new name, which fails where that is taken, then the old name is removed.
/// Of the two names one is removed only while the other is there.
std::error_code renameFile(NameInFolder from, NameInFolder to, const struct stat& status) {
  if (::linkat(from.folder, from.name.c_str(), to.folder, to.name.c_str(), 0) != 0) {
    const std::error_code error = lastError();
    if (isUnsupported(error))
      return renameOntoPlaceholder(from, to);
    if (error != std::errc::file_exists && isSame(to, identityOf(status)) && statusOf(from))
      ::unlinkat(to.folder, to.name.c_str(), 0);
    return error;
  }
  if (::unlinkat(from.folder, from.name.c_str(), 0) == 0)
    return {};
  const std::error_code error = lastError();
  if (isGone(from))
    return {};
  if (statusOf(from))
    ::unlinkat(to.folder, to.name.c_str(), 0);
  return error;
}

std::error_code renamePlainly(NameInFolder from, NameInFolder to) {
  return outcome(::renameat(from.folder, from.name.c_str(), to.folder, to.name.c_str()));
}

/// An empty folder reserves the name; rename replaces an empty folder and nothing else. Some shares
/// replace nothing at all.
std::error_code renameFolder(NameInFolder from, NameInFolder to) {
  if (::mkdirat(to.folder, to.name.c_str(), S_IRWXU) != 0)
    return lastError();
  const std::error_code error = renamePlainly(from, to);
  if (!error || isGone(from))
    return error;
  const bool isReplacing =
      error == std::errc::file_exists || error == std::errc::directory_not_empty;
  ::unlinkat(to.folder, to.name.c_str(), AT_REMOVEDIR);
  return isReplacing && isGone(to) ? renamePlainly(from, to) : error;
}

std::error_code rename(NameInFolder from, NameInFolder to) {
  if (::renameat2(from.folder, from.name.c_str(), to.folder, to.name.c_str(), RENAME_NOREPLACE) ==
      0)
    return {};
  const std::error_code error = lastError();
  const bool unsupported =
      error == std::errc::invalid_argument || error == std::errc::function_not_supported;
  return unsupported ? renameWithoutKernelHelp(from, to) : error;
}

} // namespace

bool isGone(NameInFolder place) {
  return !statusOf(place) && errno == ENOENT;
}

std::error_code renameExclusively(NameInFolder from, NameInFolder to) {
  const auto before = statusOf(from);
  return before ? unlessMoved(rename(from, to), *before, from, to) : lastError();
}

std::error_code renameWithoutKernelHelp(NameInFolder from, NameInFolder to) {
  const auto status = statusOf(from);
  if (!status)
    return lastError();
  return S_ISDIR(status->st_mode) ? renameFolder(from, to) : renameFile(from, to, *status);
}

// The old name is looked for before the placeholder goes: a rename may be done and answer an error.
std::error_code renameOntoPlaceholder(NameInFolder from, NameInFolder to) {
  const auto status = statusOf(from);
  if (!status)
    return lastError();
  if (S_ISDIR(status->st_mode))
    return renameFolder(from, to);
  const FileDescriptor placeholder(::openat(
      to.folder, to.name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, S_IRUSR));
  if (!placeholder.isOpen())
    return lastError();
  const FileIdentity own = identityOf(placeholder.get());
  const auto reserved = statusOf(to);
  if (!reserved || identityOf(*reserved) != own || reserved->st_size != 0)
    return std::make_error_code(std::errc::file_exists);
  const std::error_code error = renamePlainly(from, to);
  if (error && statusOf(from) && isSame(to, own))
    ::unlinkat(to.folder, to.name.c_str(), 0);
  return error;
}

} // namespace tavrel
