#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace tavrel {

/// How the pop-up at the pointer is called up.
enum class PopupStart : std::int32_t { hotKey = 0, doubleTap = 1, longPress = 2 };

/// What menus, hot keys and gestures are built from, as read last: at launch, and when the
/// preference program says that something has changed. Kept, so that all that is built agrees until
/// then. What decides about a single act is asked for when it counts instead:
/// controller/SettingsNow.h.
struct Settings {
  bool displayIcons = true;
  bool browseFolder = true;
  bool browsePackage = false;
  bool showProcessMenu = true;
  bool showRecentItems = true;
  bool enablePopupMenu = true;
  bool enableContextMenu = true;
  bool enableStatusMenuBar = true;
  std::int32_t popupSartType = static_cast<std::int32_t>(PopupStart::doubleTap);
  std::optional<std::string> popupShortcutString; ///< its first character counts
  std::int32_t popupShortcutModifier = 0;         ///< interface form
  std::int32_t popupShortcutKeyCode = 0;          ///< virtual key code
  std::uint32_t doubleTapKeyCode = 0;             ///< virtual key code of a modifier key
  float longPressInterval = 0.0F;                 ///< seconds; 0 unless a long press is the way in
};

/// Every setting from the store, each with its own default.
[[nodiscard]] Settings readSettings();

/// A store that names no pop-up hot key gets Command-Option-1 at launch (and only there).
void installDefaultPopupShortcut(Settings& settings);

} // namespace tavrel
