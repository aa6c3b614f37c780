#pragma once

namespace tavrel {

/// Titles that tell submenus apart; any other title is the path of a folder to list.
inline constexpr const char* groupMenuTitle = "group";
inline constexpr const char* processMenuTitle = "TVRM_ProcessMenu";
inline constexpr const char* recentMenuTitle = "TVRM_RecentMenu";

} // namespace tavrel
