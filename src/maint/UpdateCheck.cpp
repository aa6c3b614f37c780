#include "maint/UpdateCheck.h"

#include "base/Numbers.h"
#include "controller/Localized.h"
#include "controller/SettingsNow.h"
#include "maint/UpdateAlerts.h"
#include "platform/Bundle.h"
#include "platform/Clock.h"
#include "platform/Platform.h"
#include "platform/Web.h"

namespace tavrel {

namespace {

constexpr double tenDays = 864000.0;
constexpr const char* productLine = "qorvane.Tavrel2";

bool isDue() {
  return settingsNow::onlineUpdateCheck() &&
         platform().clock.now() - settingsNow::lastUpdateCheck() > tenDays;
}

float numberOf(const std::string* version) {
  return version ? floatFromDouble(leadingNumber(*version)) : 0.0F;
}

float installedNumber() {
  const auto installed = settingsNow::versionString();
  return numberOf(installed ? &*installed : nullptr);
}

// Where no preference program is installed, no other program writes it. A value that one wrote
// stays, unless it is older than the program that runs.
void recordInstalledVersion() {
  const auto version = platform().bundle.informationValue("CFBundleShortVersionString");
  if (version && numberOf(&*version) > installedNumber())
    storeVersionString(*version);
}

} // namespace

void doCheckUpdates() {
  if (!isDue())
    return;
  recordInstalledVersion();
  checkForUpdatesAndNotifyIfUnsuccessful(NotifyIfUnsuccessful::no);
  storeLastUpdateCheck(platform().clock.now());
}

bool checkForUpdatesAndNotifyIfUnsuccessful(NotifyIfUnsuccessful notify) {
  const std::string url = localized("UPDATE_PLIST_URL");
  const auto list = url.empty() ? std::nullopt : platform().web.dictionaryAt(url);
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
