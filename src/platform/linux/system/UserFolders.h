#pragma once

#include <string>
#include <vector>

namespace tavrel {

/// $HOME, or the home folder of the account when that is not set or not absolute; without a
/// trailing slash.
[[nodiscard]] std::string homeFolder();

/// $XDG_CONFIG_HOME, or ~/.config when it is not set or not absolute.
[[nodiscard]] std::string preferenceFolder();

/// $XDG_STATE_HOME, or ~/.local/state when it is not set or not absolute.
[[nodiscard]] std::string stateFolder();

/// The folders for documents, downloads, pictures and so on, as user-dirs.dirs names them (desktop
/// first), then the home folder.
[[nodiscard]] std::vector<std::string> userFolders();

} // namespace tavrel
