#include "platform/linux/x11/keystrokes/HeldModifiers.h"

#include <algorithm>
#include <iterator>

namespace tavrel {

namespace {

// Whether each of the keys is pressed with this modifier down.
bool isNeededThroughout(std::size_t modifier, const std::vector<ServerKey>& keys,
                        const ModifierKeys& modifiers) {
  bool isDown = false;
  return std::ranges::all_of(keys, [&](const ServerKey& key) {
    if (modifiers.bits[key.code] == modifiers.bits[modifier])
      isDown = key.direction == KeyDirection::down;
    return isDown || modifiers.bits[key.code] != 0 || key.direction == KeyDirection::up;
  });
}

} // namespace

HeldModifiers heldModifiers(const std::vector<ServerKey>& keys, const ServerKeySet& down,
                            const ModifierKeys& modifiers, std::uint8_t inForce) {
  HeldModifiers held;
  for (std::size_t code = 0; code < down.size(); ++code)
    held.keys[code] = down[code] && (modifiers.bits[code] & inForce) != 0 &&
                      isNeededThroughout(code, keys, modifiers);
  const auto isHeld = [&](const ServerKey& key) {
    for (std::size_t code = 0; code < down.size(); ++code)
      if (held.keys[code] && modifiers.bits[code] == modifiers.bits[key.code])
        return true;
    return false;
  };
  std::ranges::remove_copy_if(keys, std::back_inserter(held.rest), isHeld);
  return held;
}

} // namespace tavrel
