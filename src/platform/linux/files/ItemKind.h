#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace tavrel {

enum class ItemKind {
  plainFile, ///< also pipes, sockets and devices
  folder,
  package,           ///< a folder shown as one file
  applicationBundle, ///< a package that is an application
  program,           ///< a single file that is an application
  script,
  alias,
  symlink, ///< only where links are kept
};

/// What the file system tells of a path without opening it.
struct FileStatus {
  unsigned int mode = 0; ///< as in stat
  std::size_t size = 0;  ///< bytes
};

enum class LinkMode { follow, keep };

/// Nothing when nothing is there or it cannot be asked.
[[nodiscard]] std::optional<FileStatus> fileStatus(const std::string& path, LinkMode link);

/// The kind of a thing whose status is known. Opens a file only when its ending and mode leave the
/// question open, and never a pipe or a device.
[[nodiscard]] ItemKind itemKind(const std::string& path, const FileStatus& status);

/// Whether a directory is a package, by its ending or because it holds an "AppRun".
[[nodiscard]] bool isPackage(const std::string& directory);

} // namespace tavrel
