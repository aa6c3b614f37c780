#include "base/KeyMap.h"

#include <algorithm>

namespace tavrel {

namespace {
constexpr std::uint32_t keyCount = 128;

std::uint8_t bit(std::uint32_t keyCode) {
  return static_cast<std::uint8_t>(1U << (keyCode % 8));
}
} // namespace

bool KeyMap::isDown(std::uint32_t keyCode) const {
  return keyCode < keyCount && (bytes[keyCode / 8] & bit(keyCode)) != 0;
}

void KeyMap::set(std::uint32_t keyCode) {
  if (keyCode < keyCount)
    bytes[keyCode / 8] |= bit(keyCode);
}

void KeyMap::clear(std::uint32_t keyCode) {
  if (keyCode < keyCount)
    bytes[keyCode / 8] &= static_cast<std::uint8_t>(~bit(keyCode));
}

bool KeyMap::any() const {
  return std::any_of(bytes.begin(), bytes.end(), [](std::uint8_t byte) { return byte != 0; });
}

} // namespace tavrel
