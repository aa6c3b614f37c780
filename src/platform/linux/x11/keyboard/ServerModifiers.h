#pragma once

#include <bitset>
#include <cstdint>
#include <vector>

struct xcb_connection_t;

namespace tavrel {

/// Which bit of the server's modifier state stands for which modifier, and the keys that set them,
/// as read from the server: the layout decides which bit Num Lock or Alt has.
struct ServerModifiers {
  std::uint16_t alt = 0;         ///< 0 where no key is Alt
  std::uint16_t super = 0;       ///< 0 where no key is Super
  std::uint16_t locks = 0;       ///< Caps Lock, Num Lock and Scroll Lock, as far as they have one
  std::bitset<256> keys;         ///< by server key code: those that set a modifier
  std::bitset<256> capsLockKeys; ///< those of them that set Caps Lock alone
};

[[nodiscard]] ServerModifiers serverModifiers(xcb_connection_t& connection);

/// Every subset of the bits, nothing and all of them included.
[[nodiscard]] std::vector<std::uint16_t> subsetsOf(std::uint16_t bits);

} // namespace tavrel
