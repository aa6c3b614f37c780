#pragma once

#include <array>
#include <cstdint>

namespace tavrel {

/// Which key types a character, for one keyboard layout. Filled and asked by invoke/KeycodeTable.h.
struct Ascii2KeyCodeTable {
  std::int16_t layoutId = 0;
  std::array<std::uint8_t, 256> layoutName{};     ///< Pascal string: a length byte, then the name
  std::array<std::int16_t, 256> keyCodeForChar{}; ///< by character code; -1: no key types it
};

} // namespace tavrel
