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

/// Keeps what the user types from the first sign of a gesture (the press of a hot key, the second
/// press of a modifier) until it is clear what comes of it. Then a menu takes the keys over, or
/// they are typed once more into the application in front, in their order. Keys that came between
/// the gesture and the menu's own keyboard grab would be lost to that application otherwise.
///
/// Grabs the keyboard on the toolkit's connection and takes the key events out of the toolkit's
/// queue, all on the main thread. Construct it before LinuxHotKeys: event filters run last
/// installed first, and the hot keys have to see their own keys before this does.
class GestureKeyBuffer final : private QAbstractNativeEventFilter {
public:
  /// With the keys that were down after the last event.
  using Replay = std::function<void(const RecordedKeyEvents&, const ServerKeySet& down)>;

  /// Needs a QGuiApplication. There is one at a time. `replay` types keys into the application in
  /// front.
  explicit GestureKeyBuffer(Replay replay);
  ~GestureKeyBuffer() override;

  /// A gesture may have begun: grabs the keyboard, unless it is grabbed already.
  void start();
  /// What the gesture stands for is carried out from here on. Unless a menu takes over, the grab
  /// ends as soon as the event loop runs (an item may show a question to the user), or when the
  /// watchdog finds that this takes too long.
  void actionBegins();
  /// The action is over, or a zero timer that was started before this call will carry it out.
  void actionEnds();

  /// Stops and returns what was kept so far. The caller, a menu, has the keyboard from here on.
  [[nodiscard]] static RecordedKeyEvents handOverToMenu();
  /// A menu has closed and released its grab: the keys that it did not use, and those that are
  /// queued for this program still, go to the application in front.
  static void takeBackFromMenu(const RecordedKeyEvents& unused);
  /// Runs the event loop until that is done, for a tenth of a second at most: what the user chose
  /// may block for long, and the keys must not come after those typed later.
  static void waitForReplay();

private:
  enum class Phase {
    idle,
    buffering, ///< the keyboard is grabbed
    draining,  ///< it is released, and key events that came before are read from the queue
  };

  bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;
  void stop();
  void drainQueuedKeys();
  void replayKeys();

  Replay replay_;
  Phase phase_ = Phase::idle;
  RecordedKeyEvents keys_;
  ServerKeySet downAfterKeys_;
  std::optional<KeyboardGrab> grab_;
  std::unique_ptr<KeyboardGrabWatchdog> watchdog_; ///< null without an X server
  /// A hidden window. A message sent to it when the grab ends marks the end of the keys before.
  std::uint32_t markerWindow_ = 0;
  std::uint32_t lastMarker_ = 0; ///< what the message for the last grab says
  QTimer stopTimer_;
};

} // namespace tavrel
