#pragma once

#include "platform/linux/x11/keyboard/ServerKey.h"

#include <cstdint>
#include <vector>

namespace tavrel {

struct HeldModifiers {
  ServerKeySet keys;           ///< that are down, and that all keys to type need
  std::vector<ServerKey> rest; ///< of the keys to type, without those
};

/// Leaves alone what is held and needed anyway: a modifier that is released and pressed again may
/// be missing for the next key that the user presses. A modifier stays when a key that acts as the
/// same is down now, is in force (as the server's bits tell), and is down in `keys` at each press
/// of another key.
[[nodiscard]] HeldModifiers heldModifiers(const std::vector<ServerKey>& keys,
                                          const ServerKeySet& down, const ModifierKeys& modifiers,
                                          std::uint8_t inForce);

} // namespace tavrel
