#pragma once

#include "platform/HotKeys.h"

#include <functional>

namespace tavrel {

/// Sees what happens in all applications.
class EventMonitor {
public:
  virtual ~EventMonitor() = default;

  /// Calls at each change of the modifier keys, in order, on the main thread from the event loop.
  /// The keyboard port then tells the state right after the change. The handler may open a menu and
  /// so run the event loop: no further call until it has returned. While it runs, the keyboard port
  /// may show a key as down that no keyboard has: then the mouse was used, or another key too
  /// shortly to be seen, while the modifier was held. What it must outlive is the monitor. 0 when
  /// it was installed.
  virtual OSStatus installModifierHandler(std::function<void()> changed) = 0;
};

} // namespace tavrel
