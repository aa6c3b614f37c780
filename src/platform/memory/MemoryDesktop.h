#pragma once

#include "platform/Platform.h"
#include "platform/memory/MemoryAccessibility.h"
#include "platform/memory/MemoryAlerts.h"
#include "platform/memory/MemoryApplications.h"
#include "platform/memory/MemoryAuthorization.h"
#include "platform/memory/MemoryBundle.h"
#include "platform/memory/MemoryClock.h"
#include "platform/memory/MemoryEventMonitor.h"
#include "platform/memory/MemoryEventQueue.h"
#include "platform/memory/MemoryFiles.h"
#include "platform/memory/MemoryHotKeys.h"
#include "platform/memory/MemoryImages.h"
#include "platform/memory/MemoryKeyboard.h"
#include "platform/memory/MemoryNotificationCenter.h"
#include "platform/memory/MemoryPasteboards.h"
#include "platform/memory/MemoryPreferences.h"
#include "platform/memory/MemoryPresenter.h"
#include "platform/memory/MemoryRichText.h"
#include "platform/memory/MemoryScripting.h"
#include "platform/memory/MemoryScripts.h"
#include "platform/memory/MemoryServices.h"
#include "platform/memory/MemorySounds.h"
#include "platform/memory/MemoryStatusBar.h"
#include "platform/memory/MemorySystemEvents.h"
#include "platform/memory/MemorySystemLog.h"
#include "platform/memory/MemoryTextEncodings.h"
#include "platform/memory/MemoryWeb.h"
#include "platform/memory/MemoryWorkspace.h"

namespace tavrel {

/// A whole desktop made of plain values, one of each adapter.
struct MemoryDesktop {
  MemoryAccessibility accessibility;
  MemoryAlerts alerts;
  MemoryApplications applications;
  MemoryAuthorization authorization;
  MemoryBundle bundle;
  MemoryClock clock;
  MemoryEventMonitor eventMonitor;
  MemoryEventQueue eventQueue{clock};
  MemoryFiles files;
  MemoryHotKeys hotKeys;
  MemoryImages images{files};
  MemoryKeyboard keyboard;
  MemoryNotificationCenter notifications{Delivery::atOnce};
  MemoryNotificationCenter distributedNotifications{Delivery::later};
  MemoryPasteboards pasteboards;
  MemoryPreferences preferences;
  MemoryPresenter presenter;
  MemoryRichText richText;
  MemoryScripting scripting;
  MemoryScripts scripts;
  MemoryServices services;
  MemorySounds sounds;
  MemoryStatusBar statusBar{presenter};
  MemorySystemEvents systemEvents;
  MemorySystemLog log;
  MemoryTextEncodings textEncodings;
  MemoryWeb web;
  MemoryWorkspace workspace;

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

} // namespace tavrel
