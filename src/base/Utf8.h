#pragma once

#include <string>
#include <string_view>

namespace tavrel {

/// Whether the bytes are well-formed UTF-8 (no overlong forms, no surrogates).
[[nodiscard]] bool isUtf8(std::string_view bytes);

/// UTF-16 units of a UTF-8 text; every byte that is not part of it becomes U+FFFD.
[[nodiscard]] std::u16string utf16FromUtf8(std::string_view text);

/// UTF-8 of a UTF-16 text; a surrogate without its partner becomes U+FFFD.
[[nodiscard]] std::string utf8FromUtf16(std::u16string_view text);

/// Appends one code point.
void appendUtf8(std::string& text, char32_t codePoint);

} // namespace tavrel
