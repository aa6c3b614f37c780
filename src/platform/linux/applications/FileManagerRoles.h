#pragma once

#include "platform/linux/applications/ApplicationRegistry.h"

#include <optional>

namespace tavrel {

/// The file managers that scripts and settings know by name. Entries of our own stand for them,
/// with the name under the key X-Tavrel-Role.
enum class FileManagerRole { finder, pathFinder };

/// As the entries of the roles are named: "Finder", "Path Finder".
[[nodiscard]] std::string nameOf(FileManagerRole role);

/// The role that an entry of our own stands for; nothing for every other entry.
[[nodiscard]] std::optional<FileManagerRole> roleOfEntry(const DesktopEntry& entry);

/// Those who play the roles, the Finder first: the default application for folders, whatever it is,
/// then all that call themselves file managers.
[[nodiscard]] std::vector<const InstalledApplication*>
fileManagers(const ApplicationRegistry& registry);

/// Who plays a role: the first is the Finder, the next in line Path Finder. Null when there is
/// none.
[[nodiscard]] const InstalledApplication*
playerOf(FileManagerRole role, const std::vector<const InstalledApplication*>& managers);

/// The role an application is seen in: every file manager but the second is the Finder.
[[nodiscard]] std::optional<FileManagerRole>
rolePlayedBy(const InstalledApplication& application,
             const std::vector<const InstalledApplication*>& managers);

} // namespace tavrel
