#pragma once

#include <string>
#include <system_error>

namespace tavrel {

/// A name in an open folder.
struct NameInFolder {
  int folder;
  const std::string& name;
};

/// Renames a file or folder in one step, never over anything: fails with `file_exists` when the new
/// name is taken, however late that happened, and with `cross_device_link` when it is on another
/// file system.
[[nodiscard]] std::error_code renameExclusively(NameInFolder from, NameInFolder to);

/// The same without renameat2(RENAME_NOREPLACE), for file systems that do not support it.
[[nodiscard]] std::error_code renameWithoutKernelHelp(NameInFolder from, NameInFolder to);

} // namespace tavrel
