#pragma once

#include "platform/linux/x11/gestures/KeyboardGrabWatchdog.h"
#include "platform/linux/x11/keyboard/KeyboardGrab.h"
#include "platform/linux/x11/keyboard/RecordedKeyEvents.h"

#include <QAbstractNativeEventFilter>
#include <QTimer>

#include <functional>
#include <memory>
#include <optional>

namespace tavrel {

/// Keeps what is typed from the first sign of a gesture until it shows what comes of it: a menu
/// takes the keys over; else they are given back to the application in front, in their order.
///
/// Hot keys that it holds the keyboard for are to be made after it, so that they see their own keys
/// before it does.
class GestureKeyBuffer final : private QAbstractNativeEventFilter {
public:
  using GiveBack = std::function<void(const RecordedKeyEvents&)>;

  /// Needs a QGuiApplication. There is one at a time.
  explicit GestureKeyBuffer(GiveBack giveBack);
  ~GestureKeyBuffer() override;

  /// A gesture may have begun: holds the keyboard, unless it does so already.
  void begin();
  /// The gesture is told of from here on. The hold ends as soon as the event loop runs, as it does
  /// in a question to the person, or when that takes too long, unless a menu has taken over.
  void actBegins();
  /// What was to be done is done or, by a timer that waits already, just about to be.
  void actEnds();

  /// What was kept so far: the one in place ends, and the menu holds the keyboard itself.
  [[nodiscard]] static RecordedKeyEvents handOver();
  /// A menu has closed and has let go: what it had no more use for, and what is on its way to us
  /// still, goes to the application in front.
  static void takeBack(const RecordedKeyEvents& unused);
  /// Lets that happen now, for what comes next may take long. Runs the event loop for a moment.
  static void finishTakingBack();

private:
  enum class Phase { idle, holding, draining };

  bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;
  void end();
  void drain();
  void giveBack();

  GiveBack giveBack_;
  Phase phase_ = Phase::idle;
  RecordedKeyEvents keys_;
  std::optional<KeyboardGrab> grab_;
  std::unique_ptr<KeyboardGrabWatchdog> guard_; ///< null without an X server
  std::uint32_t marker_ = 0;                    ///< a window of ours, never shown
  QTimer soon_;
};

} // namespace tavrel
