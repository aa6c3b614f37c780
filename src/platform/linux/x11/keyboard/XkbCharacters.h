#pragma once

#include "platform/Keyboard.h"

#include <cstdint>
#include <vector>

struct xkb_context;
struct xkb_keymap;

namespace tavrel {

/// What the keys type, those that count first: the main keys of the group (a layout loaded in the
/// server) in force, plain, with Shift, on the third level (AltGr) and with both; the same of the
/// other groups; the keypad, with Num Lock on; and the keys of a US layout, which name the places
/// of Latin letters on a keyboard that types none. So a digit is the key of the digits' row also
/// where it takes Shift, as on French keyboards.
[[nodiscard]] std::vector<CharacterTable>
characterTablesOf(xkb_context& context, xkb_keymap& keymap, std::uint32_t group);

/// What each key types without modifiers in one group, the keypad's with Num Lock on.
[[nodiscard]] CharacterTable plainTableOf(xkb_keymap& keymap, std::uint32_t group);

} // namespace tavrel
