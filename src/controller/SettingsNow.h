#pragma once

#include <optional>
#include <string>

namespace tavrel {

/// Settings that decide about a single act and that nothing is built from. They are asked for at
/// the moment they count; the port `Preferences` answers from its copy of the domain. What menus,
/// hot keys and gestures are built from is read once for all instead: controller/Settings.h.
namespace settingsNow {

[[nodiscard]] bool doTavrelSetting();        ///< the menu ends with the settings entry
[[nodiscard]] bool onlyWithFinder();         ///< pop-up and hot keys work over the Finder alone
[[nodiscard]] bool longPressSound();         ///< a gesture that opens the pop-up is heard
[[nodiscard]] bool smallFontSize();          ///< of the pop-up
[[nodiscard]] bool openWithPathFinder();     ///< folders open there, not in the Finder
[[nodiscard]] bool openTerminalWithCmdKey(); ///< a folder opens a terminal with Command held

[[nodiscard]] bool onlineUpdateCheck();
[[nodiscard]] double lastUpdateCheck(); ///< seconds since 2001-01-01 GMT; 0: never
[[nodiscard]] std::optional<std::string> versionString(); ///< of the version installed last

} // namespace settingsNow

/// Noted by the update check itself.
void storeLastUpdateCheck(double time);
void storeVersionString(const std::string& version);

} // namespace tavrel
