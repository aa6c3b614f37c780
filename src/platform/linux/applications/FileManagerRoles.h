#pragma once

#include "platform/linux/applications/ApplicationRegistry.h"

#include <optional>

namespace tavrel {

/// The file managers that scripts and settings know by name. Each has a desktop entry of ours, in
/// resources/roles, with the name under the key X-Tavrel-Role; the installed file managers play
/// them.
enum class FileManagerRole { finder, pathFinder };

/// "Finder", "Path Finder": the names of their entries.
[[nodiscard]] std::string nameOf(FileManagerRole role);

/// The role of an entry of ours; nothing for any other entry.
[[nodiscard]] std::optional<FileManagerRole> roleOfEntry(const DesktopEntry& entry);

/// The installed applications that play the roles, in their order: the default application for
/// folders, whatever it is, then all entries of the category FileManager.
[[nodiscard]] std::vector<const InstalledApplication*>
fileManagers(const ApplicationRegistry& registry);

/// The application for a role: the first is the Finder, the second Path Finder. Null when there is
/// none.
[[nodiscard]] const InstalledApplication*
playerOf(FileManagerRole role, const std::vector<const InstalledApplication*>& managers);

/// The role of an application: every file manager but the second is the Finder.
[[nodiscard]] std::optional<FileManagerRole>
rolePlayedBy(const InstalledApplication& application,
             const std::vector<const InstalledApplication*>& managers);

} // namespace tavrel
