#include "platform/linux/x11/keyboard/XkbKeyboard.h"

#include "platform/linux/x11/keyboard/KeyPositions.h"

#include <xkbcommon/xkbcommon.h>

#include <algorithm>

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

} // namespace tavrel
