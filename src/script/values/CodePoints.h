#pragma once

#include <string>
#include <string_view>

namespace tavrel::script {

/// The character at a place of well-formed UTF-8; moves the place behind it.
[[nodiscard]] char32_t takeCodePoint(std::string_view text, std::size_t& at);

/// Adds a code point to a UTF-8 text; U+FFFD for what is none.
void appendCodePoint(std::string& text, char32_t character);

/// The small letter of a capital of the Latin, Greek, Cyrillic and Armenian alphabets (simple case
/// folding of Unicode); every other character as it is.
[[nodiscard]] char32_t caseFolded(char32_t character);

/// The plain letter under an accent, for the Latin letters up to U+017F; else the character.
[[nodiscard]] char32_t withoutDiacritic(char32_t character);

} // namespace tavrel::script
