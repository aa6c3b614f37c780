#include "controller/Settings.h"

#include "base/Modifiers.h"
#include "controller/PreferenceStore.h"
#include "controller/SettingKeys.h"
#include "controller/SystemVersion.h"

namespace tavrel {

namespace {
constexpr std::int32_t keyCodeOfOne = 18;

std::uint32_t readDoubleTapKeyCode() {
  const std::int32_t chosen = TVR_IntForKey(TVR_DoubleTapKeyCode, 0);
  return chosen == 0 ? keyCode::command : static_cast<std::uint32_t>(chosen);
}

float readLongPressInterval(const Settings& settings) {
  const bool used = settings.enablePopupMenu &&
                    settings.popupSartType == static_cast<std::int32_t>(PopupStart::longPress);
  return used ? TVR_FloatForKey(TVR_LongPressInterval) : 0.0F;
}
} // namespace

Settings readSettings() {
  Settings settings;
  settings.displayIcons = TVR_BoolForKey(TVR_DisplayIcons, true);
  settings.browseFolder = TVR_BoolForKey(TVR_DoFolderBrowsing, true);
  settings.browsePackage = TVR_BoolForKey(TVR_DoBrowsePackage, false);
  settings.showProcessMenu = TVR_BoolForKey(TVR_ShowRunningMenu, true);
  settings.enablePopupMenu = TVR_BoolForKey(TVR2_EnablePopupMenu, true);
  settings.enableContextMenu = TVR_BoolForKey(TVR2_EnableContextMenu, true);
  settings.enableStatusMenuBar = TVR_BoolForKey(TVR2_EnableStatusMenuBar, true);
  settings.popupSartType = TVR_IntForKey(TVR2_PopupStartType, 1);
  settings.popupShortcutString = TVR_StringForKey(TVR2_PopupShortcutString);
  settings.popupShortcutModifier = TVR_IntForKey(TVR2_PopupShortcutModifier, 0);
  settings.popupShortcutKeyCode = TVR_IntForKey(TVR2_PopupShortcutKeyCode, 0);
  settings.doubleTapKeyCode = readDoubleTapKeyCode();
  settings.longPressInterval = readLongPressInterval(settings);
  settings.showRecentItems = hasRecentItems() && TVR_BoolForKey(TVR_ShowRecentItems, true);
  return settings;
}

void installDefaultPopupShortcut(Settings& settings) {
  if (settings.popupShortcutString)
    return;
  // Assigned from the literal itself, g++ 12 gives a false -Wrestrict warning.
  settings.popupShortcutString = std::string("1");
  settings.popupShortcutModifier = static_cast<std::int32_t>(modifier::command | modifier::option);
  settings.popupShortcutKeyCode = keyCodeOfOne;
}

} // namespace tavrel
