#include "platform/linux/x11/keyboard/XkbKeyboard.h"

#include "platform/linux/x11/keyboard/KeyPositions.h"

#include <xkbcommon/xkbcommon.h>

#include <algorithm>
#include <string_view>

namespace tavrel {

void XkbKeymapUnref::operator()(xkb_keymap* keymap) const {
  xkb_keymap_unref(keymap);
}
void XkbStateUnref::operator()(xkb_state* state) const {
  xkb_state_unref(state);
}

namespace {

constexpr xkb_keycode_t firstKey = 8;
constexpr xkb_keycode_t lastKey = 255;

} // namespace

KeyTranslation keyTranslation(xkb_keymap& keymap) {
  KeyTranslation translation;
  translation.fill(noKey);
  const xkb_keycode_t last = std::min(xkb_keymap_max_keycode(&keymap), lastKey);
  for (xkb_keycode_t key = firstKey; key <= last; ++key)
    if (const char* name = xkb_keymap_key_get_name(&keymap, key))
      translation[key] = virtualKeyCode(name).value_or(noKey);
  return translation;
}

KeyBlock blockOf(xkb_keymap& keymap, std::uint32_t key) {
  const char* name = xkb_keymap_key_get_name(&keymap, key);
  return name && std::string_view(name).starts_with("KP") ? KeyBlock::keypad : KeyBlock::main;
}

} // namespace tavrel
