#pragma once

#include "platform/memory/MemoryDesktop.h"

namespace tavrel {

/// A memory desktop's ports with other files, images and preferences in place of its own.
inline Platform portsWith(MemoryDesktop& desktop, Files& files, Images& images,
                          Preferences& preferences) {
  return {desktop.accessibility,
          desktop.alerts,
          desktop.applications,
          desktop.authorization,
          desktop.bundle,
          desktop.clock,
          desktop.eventMonitor,
          desktop.eventQueue,
          files,
          desktop.hotKeys,
          images,
          desktop.keyboard,
          desktop.notifications,
          desktop.distributedNotifications,
          desktop.pasteboards,
          preferences,
          desktop.presenter,
          desktop.richText,
          desktop.scripting,
          desktop.scripts,
          desktop.services,
          desktop.sounds,
          desktop.statusBar,
          desktop.systemEvents,
          desktop.log,
          desktop.textEncodings,
          desktop.web,
          desktop.workspace};
}

} // namespace tavrel
