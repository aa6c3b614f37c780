#pragma once

#include "platform/linux/x11/keyboard/RecordedKeyEvents.h"
#include "platform/linux/x11/keyboard/ServerKey.h"

#include <cstdint>

namespace tavrel {

/// An active grab of the keyboard on the toolkit's connection for as long as this lives: all keys
/// come to this program. Objects that overlap share one grab. While another program has grabbed the
/// keyboard there is no grab, and nothing says so: see `take`.
class KeyboardGrab {
public:
  KeyboardGrab();
  ~KeyboardGrab();
  KeyboardGrab(const KeyboardGrab&) = delete;
  KeyboardGrab& operator=(const KeyboardGrab&) = delete;

  /// Requests the grab once more, for when something has released it or another program had it.
  static void take();
  /// Returns when the server has released it: keys posted from here on reach the application in
  /// front.
  static void release();
  /// The keys that were down when it was released last.
  [[nodiscard]] static ServerKeySet downAtLastRelease();
  /// Whether any object lives, so that a grab released for a moment is to be taken again.
  [[nodiscard]] static bool isHeld();

  /// Sends this program key events that it missed during the grab, through the server, so that they
  /// find their place among those that are queued already.
  static void inject(const RecordedKeyEvents& keys);
  /// Whether a key event is one of those.
  [[nodiscard]] static bool isInjected(const xcb_key_press_event_t& event);
};

} // namespace tavrel
