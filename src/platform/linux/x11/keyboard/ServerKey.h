#pragma once

#include "platform/Accessibility.h"

#include <array>
#include <bitset>
#include <cstdint>

namespace tavrel {

/// One key going down or up, by its code on the X server (8 to 255).
struct ServerKey {
  std::uint8_t code = 0;
  KeyDirection direction = KeyDirection::down;
  friend bool operator==(const ServerKey&, const ServerKey&) = default;
};

/// Keys by server key code.
using ServerKeySet = std::bitset<256>;

/// Which keys act as modifiers while they are down, and as which: the bit that each one sets.
struct ModifierKeys {
  ServerKeySet keys;
  std::array<std::uint8_t, 256> bits{}; ///< by server key code; 0 for other keys
};

} // namespace tavrel
