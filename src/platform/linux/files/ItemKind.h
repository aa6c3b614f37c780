#pragma once

#include "platform/Files.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace tavrel {

/// What a thing in the file system is to the application, in more kinds than the port's FileKind.
enum class ItemKind {
  plainFile, ///< also pipes, sockets and devices
  folder,
  package,           ///< a folder shown as one file
  applicationBundle, ///< a package that is an application
  program,           ///< a single file that is an application
  script,
  alias,
  symlink, ///< only of a status that was asked for without following links
};

/// What the file system knows of a path without opening the file.
struct FileStatus {
  unsigned int mode = 0; ///< as in stat
  std::size_t size = 0;  ///< bytes
};

/// Nothing when nothing is there, when it is not permitted to know, and when the mount does not
/// answer in time.
[[nodiscard]] std::optional<FileStatus> fileStatus(const std::string& path, FinalLink link);

/// The same without a timeout: for what a bounded question asks as a part of it.
[[nodiscard]] std::optional<FileStatus> fileStatusNow(const std::string& path, FinalLink link);

/// The kind of a thing whose status is known. Opens a file only when extension and mode do not
/// decide, and never a pipe or a device.
[[nodiscard]] ItemKind itemKind(const std::string& path, const FileStatus& status);

/// Whether a directory is a package, by its extension or because it holds an "AppRun".
[[nodiscard]] bool isPackage(const std::string& directory);

} // namespace tavrel
