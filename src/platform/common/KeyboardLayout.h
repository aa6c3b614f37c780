#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace tavrel {

/// A number for a layout that has only a name: the identifier's FNV-1a hash, folded to the width
/// that layouts are numbered in.
[[nodiscard]] constexpr std::int16_t layoutNumber(std::string_view identifier) {
  std::uint32_t hash = 2166136261U;
  for (char c : identifier)
    hash = (hash ^ static_cast<std::uint8_t>(c)) * 16777619U;
  return static_cast<std::int16_t>((hash >> 16) ^ (hash & 0xFFFF));
}

/// The modifier states that make the tables of a layout, the plain one first: the event-manager
/// form, eight bits to the right.
inline constexpr std::array<std::uint32_t, 8> tableModifiers{0x00, 0x02, 0x04, 0x08,
                                                             0x0A, 0x0C, 0x01, 0x10};

/// What a key types on an old keyboard resource, from one or two Mac Roman codes: the first in the
/// low byte, the second in bits 16 to 23.
[[nodiscard]] constexpr std::uint32_t translatedKey(std::uint8_t first, std::uint8_t second) {
  return first | (std::uint32_t{second} << 16U);
}

} // namespace tavrel
