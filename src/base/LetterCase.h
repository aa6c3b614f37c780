#pragma once

namespace tavrel {

/// Upper and lower case of a letter (one UTF-16 unit; Latin, Greek and Cyrillic as keyboards type
/// them), whatever the locale says. Any other character is itself.
[[nodiscard]] char16_t upperCase(char16_t character);
[[nodiscard]] char16_t lowerCase(char16_t character);

} // namespace tavrel
