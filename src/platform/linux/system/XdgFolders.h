#pragma once

#include <string>
#include <vector>

namespace tavrel {

/// Where the person's applications and choices of applications are told, most important first.
struct XdgFolders {
  std::vector<std::string> data;     ///< XDG_DATA_HOME, then XDG_DATA_DIRS
  std::vector<std::string> config;   ///< XDG_CONFIG_HOME, then XDG_CONFIG_DIRS
  std::vector<std::string> desktops; ///< XDG_CURRENT_DESKTOP, in lower case
};

/// As the environment tells it (XDG Base Directory 0.8); relative folders are ignored.
[[nodiscard]] XdgFolders xdgFolders();

} // namespace tavrel
