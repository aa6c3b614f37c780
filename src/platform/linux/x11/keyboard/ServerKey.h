#pragma once

#include "platform/Accessibility.h"

#include <bitset>
#include <cstdint>

namespace tavrel {

/// One key of the server going down or up.
struct ServerKey {
  std::uint8_t code = 0;
  KeyDirection direction = KeyDirection::down;
  friend bool operator==(const ServerKey&, const ServerKey&) = default;
};

using ServerKeySet = std::bitset<256>;

} // namespace tavrel
