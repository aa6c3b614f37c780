#include "platform/linux/LinuxDesktop.h"
#include "platform/linux/system/CompositorCheck.h"
#include "platform/linux/x11/server/ServerCheck.h"

#include "platform/common/InProcessNotificationCenter.h"
#include "platform/linux/applications/ApplicationRegistry.h"
#include "platform/linux/applications/LinuxApplications.h"
#include "platform/linux/applications/LinuxWorkspace.h"
#include "platform/linux/dbus/BusObject.h"
#include "platform/linux/dbus/LinuxDistributedNotificationCenter.h"
#include "platform/linux/files/LinuxFiles.h"
#include "platform/linux/images/LinuxImages.h"
#include "platform/linux/installation/LinuxAuthorization.h"
#include "platform/linux/installation/LinuxBundle.h"
#include "platform/linux/installation/ResourceFolder.h"
#include "platform/linux/menus/AccessibleApplication.h"
#include "platform/linux/menus/LinuxPresenter.h"
#include "platform/linux/places/RecentUsesFile.h"
#include "platform/linux/preferences/Autostart.h"
#include "platform/linux/preferences/LinuxPreferences.h"
#include "platform/linux/preferences/PreferenceWatch.h"
#include "platform/linux/preferences/RecentItemsView.h"
#include "platform/linux/scripts/LinuxScriptHost.h"
#include "platform/linux/scripts/LinuxScripting.h"
#include "platform/linux/scripts/LinuxScripts.h"
#include "platform/linux/scripts/SelectedScript.h"
#include "platform/linux/services/LinuxServices.h"
#include "platform/linux/services/ServiceFolders.h"
#include "platform/linux/session/LinuxAlerts.h"
#include "platform/linux/session/LinuxSystemEvents.h"
#include "platform/linux/sounds/LinuxSounds.h"
#include "platform/linux/system/LinuxClock.h"
#include "platform/linux/system/LinuxSystemLog.h"
#include "platform/linux/system/UserFolders.h"
#include "platform/linux/text/LinuxRichText.h"
#include "platform/linux/text/LinuxTextEncodings.h"
#include "platform/linux/tray/LinuxStatusBar.h"
#include "platform/linux/web/LinuxWeb.h"
#include "platform/linux/x11/clipboard/LinuxPasteboards.h"
#include "platform/linux/x11/gestures/GestureKeyBuffer.h"
#include "platform/linux/x11/gestures/LinuxEventMonitor.h"
#include "platform/linux/x11/gestures/LinuxEventQueue.h"
#include "platform/linux/x11/gestures/LinuxHotKeys.h"
#include "platform/linux/x11/keyboard/LinuxKeyboard.h"
#include "platform/linux/x11/keystrokes/OwnKeystrokes.h"
#include "platform/linux/x11/selection/LinuxAccessibility.h"
#include "platform/linux/x11/windows/DesktopWindows.h"

#include <cstdlib>
#include <utility>

namespace tavrel {

namespace {
constexpr const char* loginItemsKey = "AutoLaunchedApplicationDictionary";

PropertyList::Dictionary readLoginWindow() {
  return {{loginItemsKey, loginItems(xdgFolders())}};
}

bool writeLoginWindow(const PropertyList::Dictionary& values) {
  const auto found = values.find(loginItemsKey);
  const auto* items = found == values.end() ? nullptr : found->second.array();
  return setLoginItems(xdgFolders(), items ? *items : PropertyList::Array());
}
} // namespace

namespace {
std::vector<std::string> textsIn(LinuxPreferences& preferences, const std::string& key) {
  const auto value = preferences.value(preferenceDomain, key);
  std::vector<std::string> names;
  if (value && value->array())
    for (const PropertyList& name : *value->array())
      if (const std::string* text = name.string())
        names.push_back(*text);
  return names;
}
} // namespace

struct LinuxDesktop::Adapters {
  explicit Adapters(std::string exceptionsKey) : copyKeyExceptions(std::move(exceptionsKey)) {}

  void tellOfSaving() {
    if (preferences.hasChangedElsewhere(preferenceDomain))
      distributedNotifications.deliver({"saved", preferenceDomain, {}});
  }

  std::string copyKeyExceptions; ///< the setting's key
  std::string resources = resourceFolder();
  ApplicationRegistry registry{xdgFolders()};
  DesktopWindows windows;
  BusObject busObject;

  OwnKeystrokes ownKeystrokes;
  LinuxClock clock;
  LinuxPasteboards pasteboards;
  LinuxAccessibility accessibility{{registry, windows, ownKeystrokes, pasteboards.clipboard(),
                                    [this] { return textsIn(preferences, copyKeyExceptions); },
                                    [this] { clock.skipNextSleep(); }}};
  LinuxAlerts alerts;
  GestureKeyBuffer gestureKeyBuffer{
      [this](const auto& typed, const auto& down) { accessibility.retype(typed, down); }};
  LinuxApplications applications{registry, windows, resources + "/roles"};
  LinuxAuthorization authorization{uninstallHelperCommand()};
  LinuxBundle bundle{resources};
  LinuxEventMonitor eventMonitor{ownKeystrokes, &gestureKeyBuffer};
  LinuxEventQueue eventQueue{clock};
  LinuxFiles files;
  LinuxHotKeys hotKeys{ownKeystrokes, &gestureKeyBuffer};
  LinuxImages images{resources + "/images"};
  LinuxKeyboard keyboard{eventMonitor.keysOfEvent()};
  InProcessNotificationCenter notifications;
  LinuxDistributedNotificationCenter distributedNotifications{
      [this] { return presenter.isOpen(); }};
  CachedRecentUses recentUses;
  LinuxPreferences preferences{
      preferenceFolder(),
      {{"com.apple.recentitems", {[this] { return recentItems(registry, recentUses); }}},
       {"loginwindow", {readLoginWindow, writeLoginWindow}}}};
  LinuxPresenter presenter;
  LinuxRichText richText;
  LinuxScripting scripting{busObject};
  LinuxServices services{{serviceFolders(resources),
                          [this] {
                            const auto front = applications.active();
                            return front && front->name ? *front->name : std::string();
                          }},
                         busObject};
  LinuxSounds sounds{resources};
  LinuxStatusBar statusBar{presenter};
  LinuxSystemEvents systemEvents;
  LinuxSystemLog log;
  LinuxTextEncodings textEncodings;
  LinuxWeb web;
  LinuxWorkspace workspace{registry, windows};
  LongRunningScripts longRunningScripts;
  LinuxScriptHost scriptHost{{accessibility, applications, clock, keyboard, sounds, log,
                              pasteboards, workspace, registry, windows, resources + "/roles",
                              [this] { return scripting.application(); }},
                             longRunningScripts};
  LinuxScripts scripts{
      scriptHost, longRunningScripts, [this](const std::string& path) {
        return runSelectedScript(path, {applications, pasteboards, log, longRunningScripts});
      }};

  PreferenceWatch preferenceWatch{preferences.pathOf(preferenceDomain), [this] { tellOfSaving(); }};

  Platform ports{accessibility, alerts,
                 applications,  authorization,
                 bundle,        clock,
                 eventMonitor,  eventQueue,
                 files,         hotKeys,
                 images,        keyboard,
                 notifications, distributedNotifications,
                 pasteboards,   preferences,
                 presenter,     richText,
                 scripting,     scripts,
                 services,      sounds,
                 statusBar,     systemEvents,
                 log,           textEncodings,
                 web,           workspace};
};

// The user may have chosen a display of another kind for the toolkit.
bool LinuxDesktop::hasDisplay() {
  return std::getenv("QT_QPA_PLATFORM") != nullptr || serverAnswers() || compositorAnswers();
}

LinuxDesktop::LinuxDesktop(std::string copyKeyExceptions)
    : adapters_(std::make_unique<Adapters>(std::move(copyKeyExceptions))) {
  installAccessibleApplication();
  LinuxWorkspace::finishInterruptedTransfers();
  adapters_->presenter.setClosedHandler(
      [adapters = adapters_.get()] { adapters->distributedNotifications.resume(); });
  adapters_->presenter.setLocalize([adapters = adapters_.get()](const std::string& text) {
    return adapters->bundle.localizedString(text);
  });
}

LinuxDesktop::~LinuxDesktop() = default;

Platform& LinuxDesktop::ports() {
  return adapters_->ports;
}

} // namespace tavrel
