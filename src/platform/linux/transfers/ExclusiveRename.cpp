#include "platform/linux/transfers/ExclusiveRename.h"

#include "platform/linux/system/FileDescriptor.h"

#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>

namespace tavrel {

namespace {

/// A hard link under the new name, which fails where that is taken, then the old name is removed.
std::error_code renameFile(NameInFolder from, NameInFolder to) {
  if (::linkat(from.folder, from.name.c_str(), to.folder, to.name.c_str(), 0) != 0)
    return lastError();
  if (::unlinkat(from.folder, from.name.c_str(), 0) == 0)
    return {};
  const std::error_code error = lastError();
  ::unlinkat(to.folder, to.name.c_str(), 0);
  return error;
}

/// An empty folder reserves the name; rename replaces an empty folder and nothing else.
std::error_code renameFolder(NameInFolder from, NameInFolder to) {
  if (::mkdirat(to.folder, to.name.c_str(), S_IRWXU) != 0)
    return lastError();
  if (::renameat(from.folder, from.name.c_str(), to.folder, to.name.c_str()) == 0)
    return {};
  const std::error_code error = lastError();
  ::unlinkat(to.folder, to.name.c_str(), AT_REMOVEDIR);
  return error;
}

} // namespace

std::error_code renameExclusively(NameInFolder from, NameInFolder to) {
  if (::renameat2(from.folder, from.name.c_str(), to.folder, to.name.c_str(), RENAME_NOREPLACE) ==
      0)
    return {};
  const std::error_code error = lastError();
  const bool unsupported =
      error == std::errc::invalid_argument || error == std::errc::function_not_supported;
  return unsupported ? renameWithoutKernelHelp(from, to) : error;
}

std::error_code renameWithoutKernelHelp(NameInFolder from, NameInFolder to) {
  struct stat status = {};
  if (::fstatat(from.folder, from.name.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0)
    return lastError();
  return S_ISDIR(status.st_mode) ? renameFolder(from, to) : renameFile(from, to);
}

} // namespace tavrel
