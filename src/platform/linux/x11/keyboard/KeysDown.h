#pragma once

#include "platform/linux/x11/keyboard/ServerKey.h"

#include <cstdint>
#include <optional>

struct xcb_connection_t;

namespace tavrel {

/// Every key down now, on whatever keyboard; nothing when the connection has failed. All that the
/// server had to tell up to now has arrived when it returns.
[[nodiscard]] std::optional<ServerKeySet> keysDown(xcb_connection_t& connection);

/// A set of keys as the server writes it: key k is bit (k mod 8) of byte (k div 8).
[[nodiscard]] ServerKeySet keySet(const std::uint8_t (&bits)[32]);

} // namespace tavrel
