#include "controller/SettingsNow.h"

#include "controller/PreferenceStore.h"
#include "controller/SettingKeys.h"

namespace tavrel {

namespace {
// A distributor who brings updates by another way builds with the check off.
#ifdef TAVREL_UPDATE_CHECK_OFF
constexpr bool checksByDefault = false;
#else
constexpr bool checksByDefault = true;
#endif
} // namespace

namespace settingsNow {

bool doTavrelSetting() {
  return TVR_BoolForKey(TVR_DoTavrelSetting, true);
}
bool onlyWithFinder() {
  return TVR_BoolForKey(TVR_OnlyWithFinder, false);
}
bool longPressSound() {
  return TVR_BoolForKey(TVR_LongPressSound, true);
}
bool smallFontSize() {
  return TVR_BoolForKey(TVR_SmallFontSize, false);
}
bool openWithPathFinder() {
  return TVR_BoolForKey(TVR_OpenWithPathFinder, false);
}
bool openTerminalWithCmdKey() {
  return TVR_BoolForKey(TVR2_OpenTerminalWithCmdKey, false);
}

bool onlineUpdateCheck() {
  return TVR_BoolForKey(TVR_OnlineUpdateCheck, checksByDefault);
}
double lastUpdateCheck() {
  return TVR_DoubleForKey(TVR_LastUpdateCheck);
}
std::optional<std::string> versionString() {
  return TVR_StringForKey(TVR_VersionString);
}

} // namespace settingsNow

void storeLastUpdateCheck(double time) {
  TVR_SetObjectForKey(time, TVR_LastUpdateCheck);
}
void storeVersionString(const std::string& version) {
  TVR_SetObjectForKey(version, TVR_VersionString);
}

} // namespace tavrel
