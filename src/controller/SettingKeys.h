#pragma once

namespace tavrel {

/// The keys of the preference domain that the application reads.
inline constexpr const char* TVR_MenuTree = "TVR_MenuTree";
inline constexpr const char* TVR_DoFolderBrowsing = "TVR_DoFolderBrowsing";
inline constexpr const char* TVR_DoBrowsePackage = "TVR_DoBrowsePackage";
inline constexpr const char* TVR_ShowRunningMenu = "TVR_ShowRunningMenu";
inline constexpr const char* TVR_DisplayIcons = "TVR_DisplayIcons";
inline constexpr const char* TVR_ShowRecentItems = "TVR_ShowRecentItems";
inline constexpr const char* TVR_DoTavrelSetting = "TVR_DoTavrelSetting";
inline constexpr const char* TVR_LongPressInterval = "TVR_LongPressInterval";
inline constexpr const char* TVR2_EnablePopupMenu = "TVR2_EnablePopupMenu";
inline constexpr const char* TVR2_EnableContextMenu = "TVR2_EnableContextMenu";
inline constexpr const char* TVR2_EnableStatusMenuBar = "TVR2_EnableStatusMenuBar";
inline constexpr const char* TVR2_PopupStartType = "TVR2_PopupStartType";
inline constexpr const char* TVR2_PopupShortcutString = "TVR2_PopupShortcutString";
inline constexpr const char* TVR2_PopupShortcutModifier = "TVR2_PopupShortcutModifier";
inline constexpr const char* TVR2_PopupShortcutKeyCode = "TVR2_PopupShortcutKeyCode";
inline constexpr const char* TVR2_OpenTerminalWithCmdKey = "TVR2_OpenTerminalWithCmdKey";
inline constexpr const char* TVR_DoubleTapKeyCode = "TVR_DoubleTapKeyCode";
inline constexpr const char* TVR_OnlyWithFinder = "TVR_OnlyWithFinder";
inline constexpr const char* TVR_LongPressSound = "TVR_LongPressSound";
inline constexpr const char* TVR_SmallFontSize = "TVR_SmallFontSize";
inline constexpr const char* TVR_OpenWithPathFinder = "TVR_OpenWithPathFinder";
inline constexpr const char* TVR_OnlineUpdateCheck = "TVR_OnlineUpdateCheck";
inline constexpr const char* TVR_LastUpdateCheck = "TVR_LastUpdateCheck";
/// Handed to the desktop, which reads it before each capture.
inline constexpr const char* TVR_CopyKeyExceptions = "TVR_CopyKeyExceptions";
inline constexpr const char* TVR_VersionString = "TVR_VersionString";

} // namespace tavrel
