#pragma once

#include "platform/Accessibility.h"

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

} // namespace tavrel
