#pragma once

#include <string>
#include <vector>

namespace tavrel {

/// The person's home folder, without a trailing slash.
[[nodiscard]] std::string homeFolder();

/// $XDG_CONFIG_HOME, or ~/.config when it is not set or not absolute.
[[nodiscard]] std::string preferenceFolder();

/// Where a person keeps files: the desktop, the documents and so on, as user-dirs.dirs names them,
/// then the home folder.
[[nodiscard]] std::vector<std::string> userFolders();

} // namespace tavrel
