#pragma once

#include "platform/HotKeys.h"

#include <functional>

namespace tavrel {

/// Two taps of one modifier key are a double tap when less than this lies between their presses, in
/// seconds. The core decides by it (invoke/NTModifierKeyActionHandler.cpp); an adapter that must
/// know a double tap as its second press comes may allow for its own delay on top.
inline constexpr double doubleTapInterval = 0.25;

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

  /// Calls at each change of the modifier keys, in order, on the main thread from the event loop.
  /// The keyboard port then tells the state right after the change. The handler may run the event
  /// loop, as a chosen item's dialog does: the calls of that time come from there. While a menu
  /// that it has opened shows, there may be none. While a handler runs, the keyboard port
  /// may show a key as down that no keyboard has: then the mouse was used, or another key too
  /// shortly to be seen, while the modifier was held. What it must outlive is the monitor. 0 when
  /// it was installed.
  virtual OSStatus installModifierHandler(std::function<void()> changed) = 0;

  /// Calls at each change of the pointer's buttons, in order, on the main thread from the event
  /// loop. The handler neither runs the event loop nor installs another one. A later one takes
  /// its place; an empty one ends the watching. 0 when it was installed.
  virtual OSStatus installButtonHandler(std::function<void(ButtonChange)> changed) = 0;
};

} // namespace tavrel
