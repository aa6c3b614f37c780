#include "platform/macos/MacDesktop.h"

#include "platform/common/InProcessNotificationCenter.h"
#include "platform/macos/MacAccessibility.h"
#include "platform/macos/MacAlerts.h"
#include "platform/macos/MacApplications.h"
#include "platform/macos/MacAuthorization.h"
#include "platform/macos/MacBundle.h"
#include "platform/macos/MacClock.h"
#include "platform/macos/MacDistributedNotificationCenter.h"
#include "platform/macos/MacEventMonitor.h"
#include "platform/macos/MacEventQueue.h"
#include "platform/macos/MacFiles.h"
#include "platform/macos/MacHotKeys.h"
#include "platform/macos/MacImages.h"
#include "platform/macos/MacKeyboard.h"
#include "platform/macos/MacPasteboards.h"
#include "platform/macos/MacPreferences.h"
#include "platform/macos/MacPresenter.h"
#include "platform/macos/MacRichText.h"
#include "platform/macos/MacScripting.h"
#include "platform/macos/MacScripts.h"
#include "platform/macos/MacServices.h"
#include "platform/macos/MacSounds.h"
#include "platform/macos/MacStatusBar.h"
#include "platform/macos/MacSystemEvents.h"
#include "platform/macos/MacSystemLog.h"
#include "platform/macos/MacTextEncodings.h"
#include "platform/macos/MacWeb.h"
#include "platform/macos/MacWorkspace.h"

namespace tavrel {

struct MacDesktop::Adapters {
  MacAccessibility accessibility;
  MacAlerts alerts;
  MacApplications applications;
  MacAuthorization authorization;
  MacBundle bundle;
  MacClock clock;
  MacEventMonitor eventMonitor;
  MacEventQueue eventQueue;
  MacFiles files;
  MacHotKeys hotKeys;
  MacImages images;
  MacKeyboard keyboard;
  InProcessNotificationCenter notifications;
  MacDistributedNotificationCenter distributedNotifications;
  MacPasteboards pasteboards;
  MacPreferences preferences;
  MacPresenter presenter;
  MacRichText richText;
  MacScripting scripting;
  MacScripts scripts;
  MacServices services;
  MacSounds sounds;
  MacStatusBar statusBar{presenter.tracking()};
  MacSystemEvents systemEvents;
  MacSystemLog log;
  MacTextEncodings textEncodings;
  MacWeb web;
  MacWorkspace workspace;

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

MacDesktop::MacDesktop() : adapters_(std::make_unique<Adapters>()) {}

MacDesktop::~MacDesktop() = default;

Platform& MacDesktop::ports() {
  return adapters_->ports;
}

MacHotKeys& MacDesktop::hotKeys() {
  return adapters_->hotKeys;
}

} // namespace tavrel
