#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace tavrel {

/// Which key types a character, for one keyboard layout.
struct Ascii2KeyCodeTable {
  std::int16_t layoutId = 0;
  std::array<std::uint8_t, 256> layoutName{};     ///< Pascal string: a length byte, then the name
  std::array<std::int16_t, 256> keyCodeForChar{}; ///< by character code; -1: no key types it
};

/// The table of the layout that was current at launch.
extern Ascii2KeyCodeTable gKeycodeTable;

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
