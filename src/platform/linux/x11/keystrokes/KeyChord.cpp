#include "platform/linux/x11/keystrokes/KeyChord.h"

#include "base/Modifiers.h"
#include "platform/linux/x11/keystrokes/CharacterKeys.h"

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

// Virtual key codes of the keys on the right; those on the left have theirs in base/Modifiers.h.
constexpr std::uint16_t rightCommand = 54;
constexpr std::uint16_t rightShift = 60;
constexpr std::uint16_t rightOption = 61;
constexpr std::uint16_t rightControl = 62;

constexpr std::array<ModifierKey, 8> modifierSymbols{{{keyCode::command, XKB_KEY_Control_L},
                                                      {rightCommand, XKB_KEY_Control_R},
                                                      {keyCode::shift, XKB_KEY_Shift_L},
                                                      {rightShift, XKB_KEY_Shift_R},
                                                      {keyCode::option, XKB_KEY_Alt_L},
                                                      {rightOption, XKB_KEY_Alt_R},
                                                      {keyCode::control, XKB_KEY_Super_L},
                                                      {rightControl, XKB_KEY_Super_R}}};

std::optional<std::uint8_t> keyWithSymbol(xkb_keymap& keymap, xkb_keysym_t wanted) {
  for (xkb_keycode_t key = 8; key <= 255; ++key) {
    const xkb_keysym_t* symbols = nullptr;
    if (xkb_keymap_key_get_syms_by_level(&keymap, key, 0, 0, &symbols) == 1 && symbols[0] == wanted)
      return static_cast<std::uint8_t>(key);
  }
  return std::nullopt;
}

bool setsModifier(xkb_keymap& keymap, xkb_keycode_t key) {
  const std::unique_ptr<xkb_state, XkbStateUnref> state(xkb_state_new(&keymap));
  if (!state)
    return false;
  xkb_state_update_key(state.get(), key, XKB_KEY_DOWN);
  return xkb_state_serialize_mods(state.get(), XKB_STATE_MODS_DEPRESSED) != 0;
}

// Nothing where no key acts as it: the key in its place would leave a bare letter.
std::optional<std::uint8_t> modifierKeyFor(xkb_keymap& keymap, std::uint16_t keyCode) {
  const auto named = std::ranges::find(modifierSymbols, keyCode, &ModifierKey::keyCode);
  if (named == modifierSymbols.end())
    return std::nullopt;
  const auto key = keyWithSymbol(keymap, named->symbol);
  return key && setsModifier(keymap, *key) ? key : std::nullopt;
}

bool hasAny(const std::vector<KeyboardEvent>& events, std::initializer_list<std::uint16_t> keys) {
  return std::ranges::any_of(events, [&](const KeyboardEvent& event) {
    return std::ranges::find(keys, event.keyCode) != keys.end() && isModifierKey(event.keyCode);
  });
}

bool isDigit(std::uint32_t character) {
  return character >= '0' && character <= '9';
}

void releaseKeysLeftDown(std::vector<ServerKey>& keys) {
  ServerKeySet down;
  for (const ServerKey& key : keys)
    down.set(key.code, key.direction == KeyDirection::down);
  for (std::size_t code = 0; code < down.size(); ++code)
    if (down[code])
      keys.push_back({static_cast<std::uint8_t>(code), KeyDirection::up});
}

void appendKey(std::vector<ServerKey>& keys, const CharacterKey& key,
               std::optional<std::uint8_t> shift, KeyDirection direction) {
  const ServerKey typed{key.code, direction};
  if (!shift)
    return keys.push_back(typed);
  const ServerKey shifted{*shift, direction};
  keys.push_back(direction == KeyDirection::down ? shifted : typed);
  keys.push_back(direction == KeyDirection::down ? typed : shifted);
}

// Insert by its symbol: in its place users may have put another key.
std::optional<CharacterKey> keyOf(const KeyboardEvent& event, CharacterKeys& typing,
                                  const TypingLayout& layout) {
  if (event.character != insertCharacter)
    return typing.keyFor(event);
  const auto code = keyWithSymbol(layout.keymap, XKB_KEY_Insert);
  return code ? std::optional(CharacterKey{*code, layout.group, false}) : std::nullopt;
}

} // namespace

bool isModifierKey(std::uint16_t keyCode) {
  return std::ranges::find(modifierSymbols, keyCode, &ModifierKey::keyCode) !=
         modifierSymbols.end();
}

KeyChord keyChord(const std::vector<KeyboardEvent>& events, const TypingLayout& layout) {
  const bool hasCommand = hasAny(events, {keyCode::command, rightCommand});
  const bool hasShift = hasAny(events, {keyCode::shift, rightShift});
  const bool hasOthers =
      hasAny(events, {keyCode::option, rightOption, keyCode::control, rightControl});
  const bool isShortcut = hasCommand || hasOthers;
  // A shortcut is the same whether Caps Lock is on or off; a typed character is not.
  const bool isHandedOn =
      std::ranges::find(events, KeyPurpose::handedOn, &KeyboardEvent::purpose) != events.end();
  CharacterKeys typing(layout, isShortcut ? CapsLock::off : layout.capsLock,
                       isHandedOn ? KeyLevels::four : KeyLevels::two);
  const auto shift = modifierKeyFor(layout.keymap, keyCode::shift);
  KeyChord chord{{}, layout.group, true};
  for (const KeyboardEvent& event : events) {
    if (event.character == 0 && isModifierKey(event.keyCode)) {
      const auto key = modifierKeyFor(layout.keymap, event.keyCode);
      chord.isWhole = chord.isWhole && key; // without its modifier a letter would be typed
      if (key)
        chord.keys.push_back({*key, event.direction});
      continue;
    }
    const auto key = keyOf(event, typing, layout);
    chord.isWhole = chord.isWhole && key;
    if (!key)
      continue;
    // Where digits need Shift, as on French keyboards, shortcuts are pressed without it.
    const bool takesShift =
        key->withShift && !hasShift && !isHandedOn && !(isShortcut && isDigit(event.character));
    chord.group = key->group;
    appendKey(chord.keys, *key, takesShift ? shift : std::nullopt, event.direction);
  }
  releaseKeysLeftDown(chord.keys);
  return chord;
}

} // namespace tavrel
