#include "platform/linux/transfers/ExclusiveRename.h"

#include "platform/linux/system/FileDescriptor.h"

#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>

namespace tavrel {

namespace {

/// A second name comes into being only where there is none.
std::error_code renameFile(FolderPlace from, FolderPlace to) {
  if (::linkat(from.folder, from.name.c_str(), to.folder, to.name.c_str(), 0) != 0)
    return lastError();
  if (::unlinkat(from.folder, from.name.c_str(), 0) == 0)
    return {};
  const std::error_code error = lastError();
  ::unlinkat(to.folder, to.name.c_str(), 0);
  return error;
}

/// A folder replaces nothing but an empty folder, so an empty one reserves the name.
std::error_code renameFolder(FolderPlace from, FolderPlace to) {
  if (::mkdirat(to.folder, to.name.c_str(), S_IRWXU) != 0)
    return lastError();
  if (::renameat(from.folder, from.name.c_str(), to.folder, to.name.c_str()) == 0)
    return {};
  const std::error_code error = lastError();
  ::unlinkat(to.folder, to.name.c_str(), AT_REMOVEDIR);
  return error;
}

} // namespace

std::error_code renameExclusively(FolderPlace from, FolderPlace to) {
  if (::renameat2(from.folder, from.name.c_str(), to.folder, to.name.c_str(), RENAME_NOREPLACE) ==
      0)
    return {};
  const std::error_code error = lastError();
  const bool unsupported =
      error == std::errc::invalid_argument || error == std::errc::function_not_supported;
  return unsupported ? renameWithoutKernelHelp(from, to) : error;
}

std::error_code renameWithoutKernelHelp(FolderPlace from, FolderPlace to) {
  struct stat status {};
  if (::fstatat(from.folder, from.name.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0)
    return lastError();
  return S_ISDIR(status.st_mode) ? renameFolder(from, to) : renameFile(from, to);
}

} // namespace tavrel
