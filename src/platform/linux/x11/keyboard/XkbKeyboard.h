#pragma once

#include "platform/Keyboard.h"

#include <array>
#include <memory>

struct xkb_keymap;
struct xkb_state;

namespace tavrel {

struct XkbKeymapUnref {
  void operator()(xkb_keymap* keymap) const;
};
struct XkbStateUnref {
  void operator()(xkb_state* state) const;
};
using XkbKeymap = std::unique_ptr<xkb_keymap, XkbKeymapUnref>;

/// A key code of the server (8 to 255) and the virtual key code of its place, by server key code;
/// `noKey` where a place has none.
inline constexpr std::uint16_t noKey = 0xFFFF;
using KeyTranslation = std::array<std::uint16_t, 256>;

[[nodiscard]] KeyTranslation keyTranslation(xkb_keymap& keymap);

/// The tables of one group: plain, Shift, third level, Shift and third level, with Num Lock on, so
/// that the keypad types digits.
[[nodiscard]] std::vector<CharacterTable> tablesOf(xkb_keymap& keymap, std::uint32_t group);

} // namespace tavrel
