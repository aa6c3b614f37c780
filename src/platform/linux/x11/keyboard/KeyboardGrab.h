#pragma once

#include "platform/linux/x11/keyboard/RecordedKeyEvents.h"

#include <cstdint>

namespace tavrel {

/// The keyboard of the whole display, held on the toolkit's connection for as long as this lives:
/// all that is typed comes to this program. Those that overlap hold it together. While another
/// program has it, nothing is held.
class KeyboardGrab {
public:
  KeyboardGrab();
  ~KeyboardGrab();
  KeyboardGrab(const KeyboardGrab&) = delete;
  KeyboardGrab& operator=(const KeyboardGrab&) = delete;

  /// Takes hold once more where something has let go meanwhile.
  static void take();
  /// Returns when the server has let go: keys posted from here on reach the application in front.
  static void letGo();
  /// Whether to take hold again after letting go for a moment.
  [[nodiscard]] static bool isHeld();

  /// Keys that did not come to us, though we hold the keyboard: they come now.
  static void tellOf(const RecordedKeyEvents& typed);
  /// Whether a key event is one of those.
  [[nodiscard]] static bool isTold(const xcb_key_press_event_t& event);
};

} // namespace tavrel
