#pragma once

namespace tavrel {

class Accessibility;
class Applications;
class Bundle;
class Clock;
class EventMonitor;
class EventQueue;
class Files;
class HotKeys;
class Images;
class Keyboard;
class NotificationCenter;
class Pasteboards;
class Preferences;
class Presenter;
class RichText;
class Scripts;
class Services;
class Sounds;
class StatusBar;
class SystemLog;
class Workspace;

/// What the desktop lends the application: one reference a port.
struct Platform {
  Accessibility& accessibility;
  Applications& applications;
  Bundle& bundle;
  Clock& clock;
  EventMonitor& eventMonitor;
  EventQueue& eventQueue;
  Files& files;
  HotKeys& hotKeys;
  Images& images;
  Keyboard& keyboard;
  NotificationCenter& notifications;            ///< inside this process
  NotificationCenter& distributedNotifications; ///< between processes of the session
  Pasteboards& pasteboards;
  Preferences& preferences;
  Presenter& presenter;
  RichText& richText;
  Scripts& scripts;
  Services& services;
  Sounds& sounds;
  StatusBar& statusBar;
  SystemLog& log;
  Workspace& workspace;
};

/// The ports. Aborts with a message when none are installed.
[[nodiscard]] Platform& platform();

/// Called once, by `main`; aborts with a message when ports are installed already. The ports must
/// outlive every use.
void installPlatform(Platform& ports);

/// Puts other ports in place for as long as it lives, for tests.
class ScopedPlatform {
public:
  explicit ScopedPlatform(Platform& ports);
  ~ScopedPlatform();
  ScopedPlatform(const ScopedPlatform&) = delete;
  ScopedPlatform& operator=(const ScopedPlatform&) = delete;

private:
  Platform* previous_;
};

} // namespace tavrel
