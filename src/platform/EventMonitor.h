#pragma once

#include "platform/HotKeys.h"

#include <functional>

namespace tavrel {

/// Two taps of one modifier key are a double tap when less than this lies between their presses, in
/// seconds. The core decides by it (invoke/NTModifierKeyActionHandler.cpp).
inline constexpr double doubleTapInterval = 0.25;

/// A modifier key that is held for less than this, in seconds, is tapped.
inline constexpr double longestTap = 0.2;

/// What became of the buttons of the pointer, in whatever application it is.
enum class ButtonChange {
  primaryPressed,
  primaryReleased,
  otherPressed, ///< any other button, a turn of the wheel too
  moved,        ///< the pointer, told only while the primary button is down
};

/// Sees what happens in all applications.
class EventMonitor {
public:
  virtual ~EventMonitor() = default;

  /// Calls at each change of the modifier keys, in order, on the main thread from the event loop,
  /// with the time of the change, in seconds since whatever moment: only the time between two
  /// changes means something. The handler may run the event loop, as a chosen item's dialog does:
  /// the calls of that time come from there. While a menu that it has opened shows, there may be
  /// none.
  ///
  /// The call may come late. An adapter that knows what has happened since lets the keyboard port
  /// tell each handler the state right after the change: its first snapshot shows that, and the
  /// second the state after what came next, for which it may wait up to `longestTap`. A snapshot
  /// may show a key as down that no keyboard has: then the mouse was used, or a key that is up
  /// again, or what comes next took longer than that. From then on, and everywhere else, the
  /// keyboard is told as it is.
  ///
  /// The handler must outlive the monitor. 0 when it was installed.
  virtual OSStatus installModifierHandler(std::function<void(double time)> changed) = 0;

  /// Calls at each change of the pointer's buttons, in order, on the main thread from the event
  /// loop. The handler neither runs the event loop nor installs another one. A later one takes
  /// its place; an empty one ends the watching. 0 when it was installed.
  virtual OSStatus installButtonHandler(std::function<void(ButtonChange)> changed) = 0;
};

} // namespace tavrel
