#include "platform/linux/x11/keystrokes/CharacterKeys.h"

#include <algorithm>
#include <vector>

namespace tavrel {

namespace {
xkb_mod_mask_t modifierMask(xkb_keymap& keymap, const char* name) {
  const xkb_mod_index_t index = xkb_keymap_mod_get_index(&keymap, name);
  return index == XKB_MOD_INVALID ? 0 : xkb_mod_mask_t{1} << index;
}

} // namespace

std::optional<std::uint8_t> keyAt(xkb_keymap& keymap, std::uint16_t keyCode) {
  const KeyTranslation places = keyTranslation(keymap);
  const auto found = std::ranges::find(places, keyCode);
  if (found == places.end())
    return std::nullopt;
  return static_cast<std::uint8_t>(found - places.begin());
}

CharacterKeys::CharacterKeys(const TypingLayout& layout, CapsLock capsLock, KeyLevels levels)
    : keymap_(layout.keymap), group_(layout.group), state_(xkb_state_new(&keymap_)),
      shift_(modifierMask(keymap_, XKB_MOD_NAME_SHIFT)), levels_{0, shift_},
      locked_(capsLock == CapsLock::on ? modifierMask(keymap_, XKB_MOD_NAME_CAPS) : 0) {
  const xkb_mod_mask_t third = modifierMask(keymap_, "Mod5");
  if (levels == KeyLevels::four)
    levels_.insert(levels_.end(), {third, shift_ | third});
}

std::optional<CharacterKey> CharacterKeys::keyFor(const KeyboardEvent& event) {
  const auto place = keyAt(keymap_, event.keyCode);
  if (event.character != 0)
    if (const auto typed = keyThatTypes(event.character, place))
      return typed;
  return place ? std::optional(CharacterKey{*place, group_, false}) : std::nullopt;
}

std::uint32_t CharacterKeys::characterOf(const CharacterKey& key) {
  setState(key.group, key.withShift ? shift_ : 0);
  return xkb_state_key_get_utf32(state_.get(), key.code);
}

std::optional<CharacterKey> CharacterKeys::keyThatTypes(std::uint32_t character,
                                                        std::optional<std::uint8_t> first) {
  std::vector<std::uint32_t> groups{group_};
  for (std::uint32_t group = 0; group < xkb_keymap_num_layouts(&keymap_); ++group)
    groups.push_back(group);
  for (const std::uint32_t group : groups)
    for (const KeyBlock block : {KeyBlock::main, KeyBlock::keypad})
      for (const xkb_mod_mask_t modifiers : levels_) {
        setState(group, modifiers);
        if (const auto code = codeThatTypes(character, first, block))
          return CharacterKey{*code, group, (modifiers & shift_) != 0};
      }
  return std::nullopt;
}

std::optional<std::uint8_t> CharacterKeys::codeThatTypes(std::uint32_t character,
                                                         std::optional<std::uint8_t> first,
                                                         KeyBlock block) {
  if (first && xkb_state_key_get_utf32(state_.get(), *first) == character)
    return first;
  const KeyTranslation places = keyTranslation(keymap_);
  for (xkb_keycode_t key = 8; key <= 255; ++key)
    if (places[key] != noKey && blockOf(keymap_, key) == block &&
        xkb_state_key_get_utf32(state_.get(), key) == character)
      return static_cast<std::uint8_t>(key);
  return std::nullopt;
}

void CharacterKeys::setState(std::uint32_t group, xkb_mod_mask_t modifiers) {
  xkb_state_update_mask(state_.get(), modifiers, 0, locked_, 0, 0, group);
}

} // namespace tavrel
