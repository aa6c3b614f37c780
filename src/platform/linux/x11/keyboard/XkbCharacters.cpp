#include "platform/linux/x11/keyboard/XkbCharacters.h"

#include "base/MacRoman.h"
#include "platform/linux/x11/keyboard/XkbKeyboard.h"

#include <xkbcommon/xkbcommon.h>

#include <memory>

namespace tavrel {

namespace {

xkb_mod_mask_t maskOf(xkb_keymap& keymap, const char* modifier) {
  const xkb_mod_index_t index = xkb_keymap_mod_get_index(&keymap, modifier);
  return index == XKB_MOD_INVALID ? 0 : xkb_mod_mask_t{1} << index;
}

std::uint8_t latin1Code(std::uint32_t character) {
  return character < 256 ? static_cast<std::uint8_t>(character) : std::uint8_t{0};
}

using CodeOf = std::uint8_t (*)(std::uint32_t character);

/// Adds to a table what the keys of a block type in a state; a place keeps what it has.
class TypedCharacters {
public:
  TypedCharacters(xkb_keymap& keymap, CodeOf codeOf)
      : keymap_(keymap), codeOf_(codeOf), places_(keyTranslation(keymap)),
        state_(xkb_state_new(&keymap)) {}

  void add(CharacterTable& table, KeyBlock block, std::uint32_t group, xkb_mod_mask_t modifiers) {
    if (!state_)
      return;
    xkb_state_update_mask(state_.get(), modifiers, 0, maskOf(keymap_, XKB_MOD_NAME_NUM), 0, 0,
                          group);
    for (xkb_keycode_t key = 0; key < places_.size(); ++key)
      if (places_[key] < table.size() && table[places_[key]] == 0 && blockOf(keymap_, key) == block)
        table[places_[key]] = codeOf_(xkb_state_key_get_utf32(state_.get(), key));
  }

private:
  xkb_keymap& keymap_;
  CodeOf codeOf_;
  KeyTranslation places_;
  std::unique_ptr<xkb_state, XkbStateUnref> state_;
};

void appendLevels(std::vector<CharacterTable>& tables, xkb_keymap& keymap, KeyBlock block,
                  std::uint32_t group) {
  const xkb_mod_mask_t shift = maskOf(keymap, XKB_MOD_NAME_SHIFT);
  const xkb_mod_mask_t third = maskOf(keymap, "Mod5");
  TypedCharacters typed(keymap, latin1Code);
  for (const xkb_mod_mask_t modifiers : {xkb_mod_mask_t{0}, shift, third, shift | third})
    typed.add(tables.emplace_back(), block, group, modifiers);
}

XkbKeymap usKeymap(xkb_context& context) {
  const xkb_rule_names names{"evdev", "pc105", "us", "", ""};
  return XkbKeymap(xkb_keymap_new_from_names(&context, &names, XKB_KEYMAP_COMPILE_NO_FLAGS));
}

} // namespace

std::vector<CharacterTable> characterTablesOf(xkb_context& context, xkb_keymap& keymap,
                                              std::uint32_t group) {
  std::vector<CharacterTable> tables;
  appendLevels(tables, keymap, KeyBlock::main, group);
  for (std::uint32_t other = 0; other < xkb_keymap_num_layouts(&keymap); ++other)
    if (other != group)
      appendLevels(tables, keymap, KeyBlock::main, other);
  appendLevels(tables, keymap, KeyBlock::keypad, group);
  if (const XkbKeymap us = usKeymap(context))
    appendLevels(tables, *us, KeyBlock::main, 0);
  return tables;
}

CharacterTable plainTableOf(xkb_keymap& keymap, std::uint32_t group) {
  CharacterTable table{};
  TypedCharacters typed(keymap, [](std::uint32_t character) { return macRomanCode(character); });
  typed.add(table, KeyBlock::main, group, 0);
  typed.add(table, KeyBlock::keypad, group, 0);
  return table;
}

} // namespace tavrel
