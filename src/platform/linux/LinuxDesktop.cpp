#include "platform/linux/LinuxDesktop.h"

#include "platform/common/InProcessNotificationCenter.h"
#include "platform/linux/AccessibleApplication.h"
#include "platform/linux/ApplicationRegistry.h"
#include "platform/linux/Autostart.h"
#include "platform/linux/BusObject.h"
#include "platform/linux/DesktopWindows.h"
#include "platform/linux/GestureHold.h"
#include "platform/linux/LinuxAccessibility.h"
#include "platform/linux/LinuxAlerts.h"
#include "platform/linux/LinuxApplications.h"
#include "platform/linux/LinuxAuthorization.h"
#include "platform/linux/LinuxBundle.h"
#include "platform/linux/LinuxClock.h"
#include "platform/linux/LinuxDistributedNotificationCenter.h"
#include "platform/linux/LinuxEventMonitor.h"
#include "platform/linux/LinuxEventQueue.h"
#include "platform/linux/LinuxFiles.h"
#include "platform/linux/LinuxHotKeys.h"
#include "platform/linux/LinuxImages.h"
#include "platform/linux/LinuxKeyboard.h"
#include "platform/linux/LinuxPasteboards.h"
#include "platform/linux/LinuxPreferences.h"
#include "platform/linux/LinuxPresenter.h"
#include "platform/linux/LinuxRichText.h"
#include "platform/linux/LinuxScriptHost.h"
#include "platform/linux/LinuxScripting.h"
#include "platform/linux/LinuxScripts.h"
#include "platform/linux/LinuxServices.h"
#include "platform/linux/LinuxSounds.h"
#include "platform/linux/LinuxStatusBar.h"
#include "platform/linux/LinuxSystemEvents.h"
#include "platform/linux/LinuxSystemLog.h"
#include "platform/linux/LinuxTextEncodings.h"
#include "platform/linux/LinuxWeb.h"
#include "platform/linux/LinuxWorkspace.h"
#include "platform/linux/OwnKeystrokes.h"
#include "platform/linux/PreferenceWatch.h"
#include "platform/linux/RecentItemsView.h"
#include "platform/linux/RecentUsesFile.h"
#include "platform/linux/ResourceFolder.h"
#include "platform/linux/SelectedScript.h"
#include "platform/linux/ServiceFolders.h"
#include "platform/linux/UserFolders.h"

namespace tavrel {

namespace {
constexpr const char* preferenceDomain = "qorvane.tavrel.pref";
constexpr const char* loginItemsKey = "AutoLaunchedApplicationDictionary";

PropertyList::Dictionary readLoginWindow() {
  return {{loginItemsKey, loginItems(applicationFolders())}};
}

bool writeLoginWindow(const PropertyList::Dictionary& values) {
  const auto found = values.find(loginItemsKey);
  const auto* items = found == values.end() ? nullptr : found->second.array();
  return setLoginItems(applicationFolders(), items ? *items : PropertyList::Array());
}
} // namespace

struct LinuxDesktop::Adapters {
  std::string resources = resourceFolder();
  ApplicationRegistry registry{applicationFolders()};
  DesktopWindows windows;
  BusObject busObject;

  OwnKeystrokes ownKeystrokes;
  LinuxAccessibility accessibility{registry, windows, ownKeystrokes};
  LinuxAlerts alerts;
  GestureHold gestureHold{[this](const TypedKeys& typed) { accessibility.retype(typed); }};
  LinuxApplications applications{registry, windows, resources + "/roles"};
  LinuxAuthorization authorization{uninstallHelperCommand()};
  LinuxBundle bundle{resources};
  LinuxClock clock;
  LinuxEventMonitor eventMonitor{ownKeystrokes, &gestureHold};
  LinuxEventQueue eventQueue{clock};
  LinuxFiles files;
  LinuxHotKeys hotKeys{&gestureHold};
  LinuxImages images{resources + "/images"};
  LinuxKeyboard keyboard{[this] { return eventMonitor.tapIsInterrupted(); }};
  InProcessNotificationCenter notifications;
  LinuxDistributedNotificationCenter distributedNotifications{
      [this] { return presenter.isOpen(); }};
  LinuxPasteboards pasteboards;
  KeptRecentUses recentUses;
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
  LongRuns longRuns;
  LinuxScriptHost scriptHost{{accessibility, applications, clock, keyboard, sounds, log,
                              pasteboards, workspace, registry, windows, resources + "/roles",
                              [this] { return scripting.application(); }},
                             longRuns};
  LinuxScripts scripts{scriptHost, longRuns, [this](const std::string& path) {
                         return runSelectedScript(path, {applications, pasteboards, log, longRuns});
                       }};

  PreferenceWatch preferenceWatch{
      preferences.pathOf(preferenceDomain), [this] {
        if (preferences.hasChangedElsewhere(preferenceDomain))
          distributedNotifications.deliver({"saved", preferenceDomain, {}});
      }};

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

LinuxDesktop::LinuxDesktop() : adapters_(std::make_unique<Adapters>()) {
  installAccessibleApplication();
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
