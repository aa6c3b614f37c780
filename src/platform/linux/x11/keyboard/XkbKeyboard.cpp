#include "platform/linux/x11/keyboard/XkbKeyboard.h"

#include "base/MacRoman.h"
#include "platform/linux/x11/keyboard/KeyPositions.h"

#include <xkbcommon/xkbcommon.h>

#include <algorithm>
#include <initializer_list>

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

xkb_mod_mask_t maskOf(xkb_keymap& keymap, const char* modifier) {
  const xkb_mod_index_t index = xkb_keymap_mod_get_index(&keymap, modifier);
  return index == XKB_MOD_INVALID ? 0 : xkb_mod_mask_t{1} << index;
}

CharacterTable tableOf(xkb_state& state, const KeyTranslation& translation) {
  CharacterTable table{};
  for (xkb_keycode_t key = firstKey; key <= lastKey; ++key) {
    const std::uint16_t place = translation[key];
    if (place < table.size() && table[place] == 0)
      table[place] = macRomanCode(xkb_state_key_get_utf32(&state, key));
  }
  return table;
}

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

std::vector<CharacterTable> tablesOf(xkb_keymap& keymap, std::uint32_t group) {
  const std::unique_ptr<xkb_state, XkbStateUnref> state(xkb_state_new(&keymap));
  if (!state)
    return {};
  const xkb_mod_mask_t shift = maskOf(keymap, XKB_MOD_NAME_SHIFT);
  const xkb_mod_mask_t third = maskOf(keymap, "Mod5");
  const xkb_mod_mask_t numLock = maskOf(keymap, XKB_MOD_NAME_NUM);
  const KeyTranslation translation = keyTranslation(keymap);
  std::vector<CharacterTable> tables;
  for (const xkb_mod_mask_t modifiers : {xkb_mod_mask_t{0}, shift, third, shift | third}) {
    xkb_state_update_mask(state.get(), modifiers, 0, numLock, 0, 0, group);
    tables.push_back(tableOf(*state, translation));
  }
  return tables;
}

} // namespace tavrel
