#include "platform/linux/KeyChord.h"

#include "base/Modifiers.h"

#include <xkbcommon/xkbcommon-keysyms.h>
#include <xkbcommon/xkbcommon.h>

#include <algorithm>
#include <array>
#include <optional>

namespace tavrel {

namespace {

struct ModifierKey {
  std::uint16_t keyCode;
  xkb_keysym_t symbol;
};
constexpr std::array<ModifierKey, 8> modifierSymbols{{{55, XKB_KEY_Control_L},
                                                      {54, XKB_KEY_Control_R},
                                                      {56, XKB_KEY_Shift_L},
                                                      {60, XKB_KEY_Shift_R},
                                                      {58, XKB_KEY_Alt_L},
                                                      {61, XKB_KEY_Alt_R},
                                                      {59, XKB_KEY_Super_L},
                                                      {62, XKB_KEY_Super_R}}};

// A key, and what has to be held for it to type what it is to type.
struct TypingKey {
  std::uint8_t code = 0;
  std::uint32_t group = 0;
  bool withShift = false;
};

xkb_mod_mask_t modifierMask(xkb_keymap& keymap, const char* name) {
  const xkb_mod_index_t index = xkb_keymap_mod_get_index(&keymap, name);
  return index == XKB_MOD_INVALID ? 0 : xkb_mod_mask_t{1} << index;
}

std::optional<std::uint8_t> keyAt(xkb_keymap& keymap, std::uint16_t keyCode) {
  const KeyTranslation places = keyTranslation(keymap);
  const auto found = std::ranges::find(places, keyCode);
  if (found == places.end())
    return std::nullopt;
  return static_cast<std::uint8_t>(found - places.begin());
}

std::optional<std::uint8_t> keyWithSymbol(xkb_keymap& keymap, xkb_keysym_t wanted) {
  for (xkb_keycode_t key = 8; key <= 255; ++key) {
    const xkb_keysym_t* symbols = nullptr;
    if (xkb_keymap_key_get_syms_by_level(&keymap, key, 0, 0, &symbols) == 1 && symbols[0] == wanted)
      return static_cast<std::uint8_t>(key);
  }
  return std::nullopt;
}

std::optional<std::uint8_t> modifierKeyFor(xkb_keymap& keymap, std::uint16_t keyCode) {
  for (const ModifierKey& each : modifierSymbols)
    if (each.keyCode == keyCode)
      if (const auto key = keyWithSymbol(keymap, each.symbol))
        return key;
  return keyAt(keymap, keyCode);
}

class TypingKeys {
public:
  TypingKeys(const TypingLayout& layout, CapsLock capsLock)
      : keymap_(layout.keymap), group_(layout.group), state_(xkb_state_new(&keymap_)),
        shift_(modifierMask(keymap_, XKB_MOD_NAME_SHIFT)),
        locked_(capsLock == CapsLock::on ? modifierMask(keymap_, XKB_MOD_NAME_CAPS) : 0) {}

  std::optional<TypingKey> keyFor(const KeyboardEvent& event) {
    const auto place = keyAt(keymap_, event.keyCode);
    if (event.character != 0)
      if (const auto typed = keyThatTypes(event.character, place))
        return typed;
    return place ? std::optional(TypingKey{*place, group_, false}) : std::nullopt;
  }

  std::uint32_t characterOf(const TypingKey& key) {
    set(key.group, key.withShift);
    return xkb_state_key_get_utf32(state_.get(), key.code);
  }

private:
  std::optional<TypingKey> keyThatTypes(std::uint32_t character,
                                        std::optional<std::uint8_t> first) {
    std::vector<std::uint32_t> groups{group_};
    for (std::uint32_t group = 0; group < xkb_keymap_num_layouts(&keymap_); ++group)
      groups.push_back(group);
    for (const std::uint32_t group : groups)
      for (const bool withShift : {false, true}) {
        set(group, withShift);
        if (const auto code = codeThatTypes(character, first))
          return TypingKey{*code, group, withShift};
      }
    return std::nullopt;
  }

  std::optional<std::uint8_t> codeThatTypes(std::uint32_t character,
                                            std::optional<std::uint8_t> first) {
    if (first && xkb_state_key_get_utf32(state_.get(), *first) == character)
      return first;
    for (xkb_keycode_t key = 8; key <= 255; ++key)
      if (xkb_state_key_get_utf32(state_.get(), key) == character)
        return static_cast<std::uint8_t>(key);
    return std::nullopt;
  }

  void set(std::uint32_t group, bool withShift) {
    xkb_state_update_mask(state_.get(), withShift ? shift_ : 0, 0, locked_, 0, 0, group);
  }

  xkb_keymap& keymap_;
  std::uint32_t group_;
  std::unique_ptr<xkb_state, XkbStateUnref> state_;
  xkb_mod_mask_t shift_;
  xkb_mod_mask_t locked_;
};

bool holds(const std::vector<KeyboardEvent>& events, std::initializer_list<std::uint16_t> keys) {
  return std::ranges::any_of(events, [&](const KeyboardEvent& event) {
    return std::ranges::find(keys, event.keyCode) != keys.end() && isModifierKey(event.keyCode);
  });
}

bool isCopyOrPaste(std::uint32_t character) {
  return character == 'c' || character == 'v' || character == 'C' || character == 'V';
}

void liftWhatIsLeft(std::vector<ServerKey>& keys) {
  ServerKeySet down;
  for (const ServerKey& key : keys)
    down.set(key.code, key.direction == KeyDirection::down);
  for (std::size_t code = 0; code < down.size(); ++code)
    if (down[code])
      keys.push_back({static_cast<std::uint8_t>(code), KeyDirection::up});
}

void add(std::vector<ServerKey>& keys, const TypingKey& key, std::optional<std::uint8_t> shift,
         KeyDirection direction) {
  const ServerKey typed{key.code, direction};
  if (!shift)
    return keys.push_back(typed);
  const ServerKey shifted{*shift, direction};
  keys.push_back(direction == KeyDirection::down ? shifted : typed);
  keys.push_back(direction == KeyDirection::down ? typed : shifted);
}

} // namespace

bool isModifierKey(std::uint16_t keyCode) {
  return std::ranges::find(modifierSymbols, keyCode, &ModifierKey::keyCode) !=
         modifierSymbols.end();
}

KeyChord keyChord(const std::vector<KeyboardEvent>& events, const TypingLayout& layout,
                  KeyReceiver receiver) {
  const bool hasCommand = holds(events, {55, 54});
  const bool hasShift = holds(events, {56, 60});
  const bool isShortcut = hasCommand || holds(events, {58, 61, 59, 62});
  const bool isBareCommand = hasCommand && !hasShift && !holds(events, {58, 61, 59, 62});
  // A shortcut is the same whether Caps Lock is on or off; what is typed is not.
  TypingKeys typing(layout, isShortcut ? CapsLock::off : layout.capsLock);
  const auto shift = modifierKeyFor(layout.keymap, keyCode::shift);
  KeyChord chord{{}, layout.group};
  for (const KeyboardEvent& event : events) {
    if (event.character == 0 && isModifierKey(event.keyCode)) {
      if (const auto key = modifierKeyFor(layout.keymap, event.keyCode))
        chord.keys.push_back({*key, event.direction});
      continue;
    }
    const auto key = typing.keyFor(event);
    if (!key)
      continue;
    const bool forTerminal = receiver == KeyReceiver::terminal && isBareCommand &&
                             isCopyOrPaste(typing.characterOf(*key));
    chord.group = key->group;
    add(chord.keys, *key, (key->withShift && !hasShift) || forTerminal ? shift : std::nullopt,
        event.direction);
  }
  liftWhatIsLeft(chord.keys);
  return chord;
}

} // namespace tavrel
