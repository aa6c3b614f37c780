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

/// Reports every press and release of a modifier key, whatever program has the keyboard, from raw
/// XInput events (RawInput). Keystrokes that this program posts (OwnKeystrokes) are left out, and
/// what is pressed while the screen is locked. Installing a handler fails on a display without
/// XInput 2, and one line on standard error says so.
class LinuxEventMonitor final : public EventMonitor {
public:
  /// Both must outlive this. The buffer, if any, keeps what is typed from the second press of a
  /// possible double tap on.
  explicit LinuxEventMonitor(OwnKeystrokes& own, GestureKeyBuffer* keyBuffer = nullptr);
  ~LinuxEventMonitor() override;

  OSStatus installModifierHandler(std::function<void()> changed) override;
  OSStatus installButtonHandler(std::function<void(ButtonChange)> changed) override {
    return buttons_.install(std::move(changed));
  }

  /// While a handler runs because a modifier key went down: whether another key, a mouse button or
  /// the wheel has been used while that key was down. Reads all events up to the call, so that a
  /// click counts that is too short for a handler that polls the keyboard.
  [[nodiscard]] bool tapIsInterrupted();

private:
  [[nodiscard]] bool open();
  void readUpToNow();
  void readEvents();
  void apply(const struct RawInputEvent& event);
  void deliverChanges();
  void callHandlers();
  void deliverLater();

  OwnKeystrokes& own_;
  GestureKeyBuffer* keyBuffer_;
  ButtonMonitor buttons_;
  std::unique_ptr<RawInput> input_; ///< null until a handler is installed, and when it failed
  std::unique_ptr<ModifierTaps> taps_;
  std::vector<std::function<void()>> handlers_;
  ModifierChange delivered_; ///< the one whose handlers run
  DoubleTapForecast doubleTapForecast_;
  int deliveries_ = 0; ///< at work, one within another
  QObject context_;    ///< ends the timers and connections with this
  std::unique_ptr<QSocketNotifier> notifier_;
};

} // namespace tavrel
