#pragma once

#include <string>
#include <system_error>

namespace tavrel {

/// A name in an open folder.
struct FolderPlace {
  int folder;
  const std::string& name;
};

/// Gives a file or folder another place on its file system in one step, which fails with
/// `file_exists` when anything stands there already, however late it came; with
/// `cross_device_link` when the places are on different file systems.
[[nodiscard]] std::error_code renameExclusively(FolderPlace from, FolderPlace to);

/// The same by other means, for file systems whose renaming always overwrites.
[[nodiscard]] std::error_code renameWithoutKernelHelp(FolderPlace from, FolderPlace to);

} // namespace tavrel
