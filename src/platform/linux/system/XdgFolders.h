#pragma once

#include <string>
#include <vector>

namespace tavrel {

/// The folders that the XDG Base Directory specification (0.8) names, most important first, and the
/// names of the desktop.
struct XdgFolders {
  std::vector<std::string> data;     ///< XDG_DATA_HOME, then XDG_DATA_DIRS
  std::vector<std::string> config;   ///< XDG_CONFIG_HOME, then XDG_CONFIG_DIRS
  std::vector<std::string> desktops; ///< XDG_CURRENT_DESKTOP, in lower case
};

/// By the environment variables; relative folders are ignored, as XDG Base Directory 0.8 wants it.
[[nodiscard]] XdgFolders xdgFolders();

} // namespace tavrel
