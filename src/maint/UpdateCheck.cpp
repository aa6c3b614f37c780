#include "maint/UpdateCheck.h"

#include "base/Numbers.h"
#include "controller/PreferenceStore.h"
#include "controller/SettingKeys.h"
#include "maint/UpdateAlerts.h"
#include "platform/Bundle.h"
#include "platform/Clock.h"
#include "platform/Platform.h"
#include "platform/Web.h"

namespace tavrel {

namespace {

constexpr double tenDays = 864000.0;
constexpr const char* productLine = "qorvane.Tavrel2";

// A distributor who brings updates by another way builds with the check off.
#ifdef TAVREL_UPDATE_CHECK_OFF
constexpr bool checksByDefault = false;
#else
constexpr bool checksByDefault = true;
#endif

bool isDue() {
  return TVR_BoolForKey(TVR_OnlineUpdateCheck, checksByDefault) &&
         platform().clock.now() - TVR_DoubleForKey(TVR_LastUpdateCheck) > tenDays;
}

float numberOf(const std::string* version) {
  return version ? floatFromDouble(leadingNumber(*version)) : 0.0F;
}

float installedNumber() {
  const auto installed = TVR_StringForKey(TVR_VersionString);
  return numberOf(installed ? &*installed : nullptr);
}

// Nobody else writes it where no preference program is installed. What somebody did write stays,
// unless it is older than the program that runs.
void recordInstalledVersion() {
  const auto version = platform().bundle.informationValue("CFBundleShortVersionString");
  if (version && numberOf(&*version) > installedNumber())
    TVR_SetObjectForKey(*version, TVR_VersionString);
}

} // namespace

void doCheckUpdates() {
  if (!isDue())
    return;
  recordInstalledVersion();
  checkForUpdatesAndNotifyIfUnsuccessful(NotifyIfUnsuccessful::no);
  TVR_SetObjectForKey(platform().clock.now(), TVR_LastUpdateCheck);
}

bool checkForUpdatesAndNotifyIfUnsuccessful(NotifyIfUnsuccessful notify) {
  const std::string url = platform().bundle.localizedString("UPDATE_PLIST_URL");
  const auto list = platform().web.dictionaryAt(url);
  if (list && checkForTavrelUpdatesAndNotifyIfUnsuccessful(notify, *list))
    return true;
  if (notify == NotifyIfUnsuccessful::yes)
    showUpdateError();
  return false;
}

bool checkForTavrelUpdatesAndNotifyIfUnsuccessful(NotifyIfUnsuccessful notify,
                                                  const PropertyList& list) {
  const PropertyList* entry = list.find(productLine);
  const std::string* version = entry ? entry->stringFor("version") : nullptr;
  if (installedNumber() >= numberOf(version)) {
    if (notify == NotifyIfUnsuccessful::yes)
      showUpToDate();
    return true;
  }
  if (!version)
    return false;
  const std::string* url = entry->stringFor("url");
  offerNewVersion(*version, url ? *url : std::string());
  return true;
}

} // namespace tavrel
