#pragma once

#include "invoke/KeycodeTable.h"

#include <cstdint>
#include <initializer_list>
#include <span>

namespace tavrel {

/// Tests of the keyboard as it is at the moment of the call. Each takes one snapshot.

/// Whether Shift, Command or Option (the left-hand keys) is down.
[[nodiscard]] bool CheckShiftKey();
[[nodiscard]] bool CheckCommandKey();
[[nodiscard]] bool CheckOptionKey();

/// Whether any key at all is down, modifiers included.
[[nodiscard]] bool isKeyPreessed();

/// Whether the key is down; false above 127.
[[nodiscard]] bool TestForKeyDown(std::uint16_t keyCode);

/// Whether the key that types the character is down.
[[nodiscard]] bool TestForAsciiKeyDown(const Ascii2KeyCodeTable& table, std::uint16_t character);

/// Whether every one of them is down; false for none at all.
[[nodiscard]] bool TestForArrayOfKeysDown(std::span<const std::uint16_t> keyCodes);
[[nodiscard]] bool TestForArrayOfAsciiKeysDown(const Ascii2KeyCodeTable& table,
                                               std::span<const std::uint8_t> characters);
[[nodiscard]] bool TestForMultipleKeysDown(std::initializer_list<std::uint16_t> keyCodes);
[[nodiscard]] bool TestForMultipleAsciiKeysDown(const Ascii2KeyCodeTable& table,
                                                std::initializer_list<std::uint16_t> characters);

} // namespace tavrel
