#pragma once

#include "platform/linux/x11/keystrokes/KeystrokeServer.h"

#include <cstdint>
#include <vector>

struct xkb_keymap;

namespace tavrel {

enum class CapsLock { off, on };

/// A chord in the server's terms: the keys in order, and the group that has to be in force.
struct KeyChord {
  std::vector<ServerKey> keys;
  std::uint32_t group = 0;
  bool isWhole = true; ///< the keyboard has all keys of it
};

/// What the key Insert types, as `NSInsertFunctionKey`.
inline constexpr std::uint16_t insertCharacter = 0xF727;

/// The layout that a chord is typed on.
struct TypingLayout {
  xkb_keymap& keymap;
  std::uint32_t group = 0;
  CapsLock capsLock = CapsLock::off;
};

/// The server keys that make a chord arrive as meant:
///  - A key with a character is the key that types it: in the group in force, with Shift where that
///    takes it, else in another group. A digit of a shortcut never adds Shift: French layouts need
///    Shift for digits, and users press such a shortcut without.
///  - A key without a character, or with one that no key types, is the key in its place.
///  - Modifiers are the keys that act as such, wherever the layout puts them; Command is Ctrl.
///  Where
///    none does, the chord is not whole.
///  - Keys that are left down go up at the end.
[[nodiscard]] KeyChord keyChord(const std::vector<KeyboardEvent>& events,
                                const TypingLayout& layout);

[[nodiscard]] bool isModifierKey(std::uint16_t keyCode);

} // namespace tavrel
