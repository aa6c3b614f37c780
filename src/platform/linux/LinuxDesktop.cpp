#include "platform/linux/LinuxDesktop.h"

#include "platform/InProcessNotificationCenter.h"
#include "platform/linux/ApplicationRegistry.h"
#include "platform/linux/DesktopWindows.h"
#include "platform/linux/LinuxApplications.h"
#include "platform/linux/LinuxBundle.h"
#include "platform/linux/LinuxClock.h"
#include "platform/linux/LinuxDistributedNotificationCenter.h"
#include "platform/linux/LinuxFiles.h"
#include "platform/linux/LinuxImages.h"
#include "platform/linux/LinuxKeyboard.h"
#include "platform/linux/LinuxPasteboards.h"
#include "platform/linux/LinuxPreferences.h"
#include "platform/linux/LinuxPresenter.h"
#include "platform/linux/LinuxRichText.h"
#include "platform/linux/LinuxScriptHost.h"
#include "platform/linux/LinuxScripts.h"
#include "platform/linux/LinuxSounds.h"
#include "platform/linux/LinuxStatusBar.h"
#include "platform/linux/LinuxSystemLog.h"
#include "platform/linux/LinuxWorkspace.h"
#include "platform/linux/ResourceFolder.h"
#include "platform/linux/SelectedScript.h"

namespace tavrel {

struct LinuxDesktop::Adapters {
  std::string resources = resourceFolder();
  ApplicationRegistry registry{applicationFolders()};
  DesktopWindows windows;

  LinuxApplications applications{registry, windows, resources + "/roles"};
  LinuxBundle bundle{resources};
  LinuxClock clock;
  LinuxFiles files;
  LinuxImages images{resources + "/images"};
  LinuxKeyboard keyboard;
  InProcessNotificationCenter notifications;
  LinuxDistributedNotificationCenter distributedNotifications;
  LinuxPasteboards pasteboards;
  LinuxPreferences preferences{preferenceFolder()};
  LinuxPresenter presenter;
  LinuxRichText richText;
  LinuxSounds sounds{resources};
  LinuxStatusBar statusBar{presenter};
  LinuxSystemLog log;
  LinuxWorkspace workspace{registry, windows};
  LongRuns longRuns;
  LinuxScriptHost scriptHost{
      {applications, clock, sounds, log, workspace, registry, windows, resources + "/roles"},
      longRuns};
  LinuxScripts scripts{scriptHost, longRuns, [this](const std::string& path) {
                         return runSelectedScript(path, {applications, pasteboards, log, longRuns});
                       }};

  Platform ports{applications, bundle,      clock,         files,
                 images,       keyboard,    notifications, distributedNotifications,
                 pasteboards,  preferences, presenter,     richText,
                 scripts,      sounds,      statusBar,     log,
                 workspace};
};

LinuxDesktop::LinuxDesktop() : adapters_(std::make_unique<Adapters>()) {}

LinuxDesktop::~LinuxDesktop() = default;

Platform& LinuxDesktop::ports() {
  return adapters_->ports;
}

} // namespace tavrel
