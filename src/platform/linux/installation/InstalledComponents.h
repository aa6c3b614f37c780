#pragma once

#include <optional>
#include <string>

namespace tavrel {

/// What may be installed besides the program, for all users (system) or for one: the plug-in of the
/// file manager and the preferences pane. The uninstaller removes them.
enum class InstalledComponent { systemPlugin, userPlugin, systemPane, userPane };

/// Where a component is: the folder is trusted, and no symbolic link is followed below it.
struct ComponentLocation {
  std::string folder;
  std::string relativePath;
};

/// The folders that components are installed below.
struct InstallationFolders {
  std::string prefix; ///< of the installation, as /usr
  std::string home;   ///< of the user
};

/// The component that the application means by a path: "/Library/Contextual Menu
/// Items/Tavrel.plugin" or "/Library/PreferencePanes/TavrelPref.prefPane", each also below the home
/// folder. Nothing for any other path.
[[nodiscard]] std::optional<InstalledComponent> installedComponent(const std::string& path,
                                                                   const std::string& home);

[[nodiscard]] ComponentLocation locationOf(InstalledComponent component,
                                           const InstallationFolders& folders);

/// The name of a component in the requests to the uninstall helper, and back.
[[nodiscard]] const char* componentName(InstalledComponent component);
[[nodiscard]] std::optional<InstalledComponent> componentNamed(const std::string& name);

} // namespace tavrel
