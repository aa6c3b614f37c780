#pragma once

#include "platform/linux/files/DesktopEntry.h"

#include <string>

namespace tavrel {

class DesktopWindows;

/// Startup notification (freedesktop.org, 0.1): tells the window manager that the user starts an
/// application, so that it shows that and lets the new window come to the front.
class StartupNotification {
public:
  StartupNotification(DesktopWindows& windows, const DesktopEntry& entry,
                      const std::string& entryPath);

  /// The startup id for the application's environment; empty without an X server.
  [[nodiscard]] const std::string& id() const { return id_; }

  /// Ends the notification of an application that could not be started.
  void withdraw();

private:
  DesktopWindows& windows_;
  std::string id_;
  bool isAnnounced_ = false;
};

} // namespace tavrel
