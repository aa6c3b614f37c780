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
/// file system. A share may carry it out and answer an error all the same (its answer was lost):
/// that is no error here.
[[nodiscard]] std::error_code renameExclusively(NameInFolder from, NameInFolder to);

/// The same without renameat2(RENAME_NOREPLACE), for file systems that do not support it.
[[nodiscard]] std::error_code renameWithoutKernelHelp(NameInFolder from, NameInFolder to);

/// The same without hard links, too, as shares in the web and telephones are mounted: an empty file
/// takes the new name first, and is replaced.
[[nodiscard]] std::error_code renameOntoPlaceholder(NameInFolder from, NameInFolder to);

/// Whether nothing is there. False when that cannot be told.
[[nodiscard]] bool isGone(NameInFolder place);

} // namespace tavrel
