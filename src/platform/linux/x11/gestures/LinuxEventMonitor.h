#pragma once

#include "platform/EventMonitor.h"
#include "platform/linux/x11/gestures/ButtonMonitor.h"
#include "platform/linux/x11/gestures/DoubleTapForecast.h"
#include "platform/linux/x11/gestures/ModifierTaps.h"
#include "platform/linux/x11/gestures/ServerTime.h"
#include "platform/linux/x11/keyboard/KeysOfEvent.h"

#include <QObject>

#include <memory>
#include <optional>
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

  OSStatus installModifierHandler(std::function<void(double)> changed) override;
  OSStatus installButtonHandler(std::function<void(ButtonChange)> changed) override {
    return buttons_.install(std::move(changed));
  }

  /// For the keyboard port: the keys as they were at the change whose handlers run, and at what
  /// came next. Nothing outside of handlers, and once a handler has seen what came next.
  [[nodiscard]] KeysOfEvent keysOfEvent();

private:
  enum class Told { nothing, change, sequel };
  /// What the keyboard port has told a handler of a change.
  struct Delivery {
    ModifierChange change;
    Told told = Told::nothing;
  };

  [[nodiscard]] bool open();
  void readUpToNow();
  void synchronize();
  bool readEvents(); ///< whether there were any
  void giveUp();
  void apply(const struct RawInputEvent& event);
  [[nodiscard]] std::optional<ServerKeySet> keysAfterChange() const;
  [[nodiscard]] std::optional<ServerKeySet> nextKeys();
  void awaitSequel();
  void deliverChanges();
  void callHandlers();
  void deliverLater();

  OwnKeystrokes& own_;
  GestureKeyBuffer* keyBuffer_;
  ButtonMonitor buttons_;
  std::unique_ptr<RawInput> input_; ///< null until a handler is installed, and when it failed
  std::unique_ptr<ModifierTaps> taps_;
  std::vector<std::function<void(double)>> handlers_;
  std::optional<Delivery> delivery_; ///< the one whose handlers run
  ServerTime time_;
  DoubleTapForecast doubleTapForecast_;
  int deliveries_ = 0; ///< at work, one within another
  QObject context_;    ///< ends the timers and connections with this
  std::unique_ptr<QSocketNotifier> notifier_;
};

} // namespace tavrel
