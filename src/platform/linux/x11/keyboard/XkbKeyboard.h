#pragma once

#include <array>
#include <cstdint>
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

/// The virtual key code of each key, by server key code (8 to 255); `noKey` for a key without one.
inline constexpr std::uint16_t noKey = 0xFFFF;
using KeyTranslation = std::array<std::uint16_t, 256>;

[[nodiscard]] KeyTranslation keyTranslation(xkb_keymap& keymap);

enum class KeyBlock { main, keypad };

/// Where the key with this server key code is. A character is looked for on the main keys first.
[[nodiscard]] KeyBlock blockOf(xkb_keymap& keymap, std::uint32_t key);

} // namespace tavrel
