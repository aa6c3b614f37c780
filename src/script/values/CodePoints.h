#pragma once

#include <string>
#include <string_view>

namespace tavrel::script {

/// The code point that starts at byte `at` of a well-formed UTF-8 text; moves `at` behind it.
[[nodiscard]] char32_t takeCodePoint(std::string_view text, std::size_t& at);

/// Appends a code point to a UTF-8 text; U+FFFD for a number that is none.
void appendCodePoint(std::string& text, char32_t character);

/// The small letter of a capital in the Latin, Greek, Cyrillic and Armenian alphabets, as Unicode's
/// simple case folding has it; every other code point as it is.
[[nodiscard]] char32_t caseFolded(char32_t character);

/// A Latin letter up to U+017F without its accent; every other code point as it is.
[[nodiscard]] char32_t withoutDiacritic(char32_t character);

} // namespace tavrel::script
