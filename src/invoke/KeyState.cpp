#include "invoke/KeyState.h"

#include "base/Modifiers.h"
#include "platform/Keyboard.h"
#include "platform/Platform.h"

#include <algorithm>

namespace tavrel {

namespace {

constexpr std::uint16_t noKey = 0xFFFF;

KeyMap keysNow() {
  return platform().keyboard.keyMap();
}

std::uint16_t keyTyping(const Ascii2KeyCodeTable& table, std::uint16_t character) {
  const std::int16_t keyCode = character > 255 ? std::int16_t{-1} : table.keyCodeForChar[character];
  return keyCode < 0 ? noKey : static_cast<std::uint16_t>(keyCode);
}

// No key at all is "not down": std::all_of alone would answer true.
template <class Keys, class KeyOf> bool allDown(const Keys& keys, KeyOf keyOf) {
  const KeyMap now = keysNow();
  return keys.begin() != keys.end() &&
         std::all_of(keys.begin(), keys.end(), [&](auto key) { return now.isDown(keyOf(key)); });
}

std::uint16_t itself(std::uint16_t keyCode) {
  return keyCode;
}

} // namespace

bool CheckShiftKey() {
  return TestForKeyDown(keyCode::shift);
}
bool CheckCommandKey() {
  return TestForKeyDown(keyCode::command);
}
bool CheckOptionKey() {
  return TestForKeyDown(keyCode::option);
}

bool isKeyPreessed() {
  return keysNow().any();
}

bool TestForKeyDown(std::uint16_t keyCode) {
  return keysNow().isDown(keyCode);
}

bool TestForAsciiKeyDown(const Ascii2KeyCodeTable& table, std::uint16_t character) {
  return keysNow().isDown(keyTyping(table, character));
}

bool TestForArrayOfKeysDown(std::span<const std::uint16_t> keyCodes) {
  return allDown(keyCodes, itself);
}

bool TestForArrayOfAsciiKeysDown(const Ascii2KeyCodeTable& table,
                                 std::span<const std::uint8_t> characters) {
  return allDown(characters, [&](std::uint8_t each) { return keyTyping(table, each); });
}

bool TestForMultipleKeysDown(std::initializer_list<std::uint16_t> keyCodes) {
  return allDown(keyCodes, itself);
}

bool TestForMultipleAsciiKeysDown(const Ascii2KeyCodeTable& table,
                                  std::initializer_list<std::uint16_t> characters) {
  return allDown(characters, [&](std::uint16_t each) { return keyTyping(table, each); });
}

} // namespace tavrel
