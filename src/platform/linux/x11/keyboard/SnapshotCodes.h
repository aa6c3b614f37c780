#pragma once

#include "platform/linux/x11/keyboard/ServerModifiers.h"
#include "platform/linux/x11/keyboard/XkbKeyboard.h"

#include <cstdint>

namespace tavrel {

/// The virtual key code that each key has in a snapshot of the keyboard, by server key code: that
/// of its place; but a key that acts as a modifier has the code of that modifier's left key, so
/// that swapped, moved and right-hand modifiers count as what they are. `otherKey` for a key in a
/// modifier's place that is none, and for keys without a code.
[[nodiscard]] KeyTranslation snapshotCodes(xkb_keymap& keymap, std::uint32_t group,
                                           const ServerModifiers& modifiers);

/// A virtual key code that no place has.
inline constexpr std::uint16_t otherKey = 127;

} // namespace tavrel
