#pragma once

#include "base/PropertyList.h"

#include <string>

namespace tavrel {

/// Replaces a file whole or not at all: the bytes are written to a temporary file beside it and
/// flushed to the disk, then that is renamed. A symbolic link is kept, the file that it leads to is
/// replaced. Mode and extended attributes stay; a new file gets the mode 0600, and the folders
/// above it are made. A pipe or a device is left alone. The reason in one clause when it failed,
/// empty when it was done.
[[nodiscard]] std::string replaceFile(const std::string& path, const Bytes& bytes);

/// The path without symbolic links; the path itself when it leads nowhere.
[[nodiscard]] std::string resolvingLinks(const std::string& path);

} // namespace tavrel
