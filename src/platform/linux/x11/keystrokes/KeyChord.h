#pragma once

#include "platform/linux/x11/keystrokes/KeystrokeServer.h"

#include <cstdint>
#include <vector>

struct xkb_keymap;

namespace tavrel {

/// In a terminal Command-C and Command-V take Shift; a bare one has no keys for them at all.
enum class KeyReceiver { application, terminal, bareTerminal };
enum class CapsLock { off, on };

/// A chord in the server's own terms: the keys in order, and the group they are to be typed in.
struct KeyChord {
  std::vector<ServerKey> keys;
  std::uint32_t group = 0;
};

/// The layout that a chord is typed on.
struct TypingLayout {
  xkb_keymap& keymap;
  std::uint32_t group = 0;
  CapsLock capsLock = CapsLock::off;
};

/// What the server must be sent so that a chord arrives as meant. A key with a character is the one
/// that types it in the group in force, with Shift where it takes that, else the one of another
/// group, but a digit in a shortcut never adds Shift; a key without, or whose character nothing
/// types, is the one in its place. Command is the key that acts as Ctrl, wherever the layout puts
/// it. In a terminal Command-C and Command-V get Shift, as Ctrl-C would interrupt what runs there;
/// in a bare one, which takes the chord with Shift for the one without, they are left out. Every
/// key that is left down goes up at the end.
[[nodiscard]] KeyChord keyChord(const std::vector<KeyboardEvent>& events,
                                const TypingLayout& layout, KeyReceiver receiver);

[[nodiscard]] bool isModifierKey(std::uint16_t keyCode);

} // namespace tavrel
