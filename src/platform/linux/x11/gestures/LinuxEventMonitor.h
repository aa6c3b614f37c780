#pragma once

#include "platform/EventMonitor.h"
#include "platform/linux/x11/gestures/ButtonMonitor.h"
#include "platform/linux/x11/gestures/DoubleTapForecast.h"
#include "platform/linux/x11/gestures/ModifierTaps.h"

#include <QObject>

#include <memory>
#include <vector>

class QSocketNotifier;

namespace tavrel {

class GestureKeyBuffer;
class OwnKeystrokes;
class RawInput;

/// The modifier keys of all programs, from XInput's raw events. What we type ourselves is left out.
/// Installing fails on a display without them, and one line on standard error says so.
class LinuxEventMonitor final : public EventMonitor {
public:
  /// Both must outlive this. The hold, if any, keeps what is typed from the moment on that a
  /// modifier may be tapped for the second time.
  explicit LinuxEventMonitor(OwnKeystrokes& own, GestureKeyBuffer* hold = nullptr);
  ~LinuxEventMonitor() override;

  OSStatus installModifierHandler(std::function<void()> changed) override;
  OSStatus installButtonHandler(std::function<void(ButtonChange)> changed) override {
    return buttons_.install(std::move(changed));
  }

  /// While a handler runs because a modifier key went down: whether another key, a mouse button or
  /// the wheel has been used since, as long as that key was down. Exact up to the moment of the
  /// call, so that a click too short for whoever looks at the keyboard now and then counts, too.
  [[nodiscard]] bool tapIsInterrupted();

private:
  [[nodiscard]] bool open();
  void readUpToNow();
  void read();
  void take(const struct RawInputEvent& event);
  void deliver();
  void tell();
  void deliverLater();

  OwnKeystrokes& own_;
  GestureKeyBuffer* hold_;
  ButtonMonitor buttons_;
  std::unique_ptr<RawInput> input_; ///< null until a handler is installed, and when it failed
  std::unique_ptr<ModifierTaps> taps_;
  std::vector<std::function<void()>> handlers_;
  ModifierChange told_;
  DoubleTapForecast doubleTapForecast_;
  bool delivering_ = false;
  QObject eventLoop_;
  std::unique_ptr<QSocketNotifier> arrival_;
};

} // namespace tavrel
