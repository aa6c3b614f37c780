#pragma once

#include "base/PropertyList.h"
#include "platform/Files.h"

#include <optional>
#include <string>

namespace tavrel {

/// Symbolic links resolved, then the path standardised.
[[nodiscard]] std::string resolvedSymlinks(const std::string& path);

/// The target of an alias file, or the path itself.
[[nodiscard]] std::string resolveAliasFile(const std::string& path);

/// `resolveAliasFile` of `resolvedSymlinks`.
[[nodiscard]] std::string cleanedUpPath(const std::string& path);

/// Whether a path goes through `cleanedUpPath` before it is asked about.
enum class CleanPath { no, yes };

/// What stands at a path: 0 nothing or a plain file, 1 a folder, 2 a package. The numbers are the
/// ones menus and actions compare with.
enum class DirectoryKind { none = 0, folder = 1, package = 2 };

/// The number for a kind of file.
[[nodiscard]] DirectoryKind directoryKind(FileKind kind);

[[nodiscard]] DirectoryKind isDirectory(const std::string& path, CleanPath cleanPath);

/// The item type of a file, as "application"; empty for a kind that no record can hold.
[[nodiscard]] std::string itemTypeFromPath(const std::string& path);

/// The absolute path a file record stands for, the place its bookmark leads to when the file has
/// moved; nothing when its URL names no path.
[[nodiscard]] std::optional<std::string> fullPathForItem(const PropertyList& record);

/// The file URL string of a path, with a trailing slash for an existing directory.
[[nodiscard]] std::string fileUrlForPath(const std::string& path);

} // namespace tavrel
