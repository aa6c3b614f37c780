#pragma once

namespace tavrel {

class Accessibility;
class Alerts;
class Applications;
class Authorization;
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
class Scripting;
class Scripts;
class Services;
class Sounds;
class StatusBar;
class SystemEvents;
class SystemLog;
class TextEncodings;
class Web;
class Workspace;

/// What the desktop lends the application: one reference a port.
struct Platform {
  Accessibility& accessibility;
  Alerts& alerts;
  Applications& applications;
  Authorization& authorization;
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
  Scripting& scripting;
  Scripts& scripts;
  Services& services;
  Sounds& sounds;
  StatusBar& statusBar;
  SystemEvents& systemEvents;
  SystemLog& log;
  TextEncodings& textEncodings;
  Web& web;
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
