#pragma once

#include "controller/Ascii2KeyCodeTable.h"

#include <cstdint>
#include <string>

namespace tavrel {

/// The answer of the table's makers when the layout's characters cannot be had.
inline constexpr std::int16_t resourceNotFound = -192;

/// Fills the table from the current layout: the first key that types a character wins. 0, or
/// `resourceNotFound` with no character typed by any key.
std::int16_t InitAscii2KeyCodeTable(Ascii2KeyCodeTable& table);

/// Fills the table again when the layout has changed, and tells whether it did.
std::int16_t ValidateAscii2KeyCodeTable(Ascii2KeyCodeTable& table, bool& rebuilt);

/// The key that types a character; -1 when none does, 0 (the key of "a") above 255.
[[nodiscard]] std::int16_t AsciiToKeyCode(const Ascii2KeyCodeTable& table, std::uint16_t character);

/// The character that a key types without modifiers.
[[nodiscard]] std::int8_t KeyCodeToAscii(std::uint16_t keyCode);

/// The name of the layout that the table was made from.
[[nodiscard]] std::string GetKchrName(const Ascii2KeyCodeTable& table);

} // namespace tavrel
