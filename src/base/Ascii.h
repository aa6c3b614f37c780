#pragma once

namespace tavrel {

// ASCII only, whatever the locale says.

[[nodiscard]] constexpr bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

[[nodiscard]] constexpr bool isLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

} // namespace tavrel
