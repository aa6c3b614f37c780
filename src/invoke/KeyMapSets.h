#pragma once

#include "base/KeyMap.h"

#include <cstdint>

namespace tavrel {

/// Sets of keys, written as keyboard snapshots.

/// Takes every key out.
void keyMapInit(KeyMap& map);
void keyMapAddKeyCode(KeyMap& map, std::uint32_t keyCode);
/// Every key that was out comes in, and the other way round.
void keyMapInvert(KeyMap& map);
/// Whether at least one key is in both.
[[nodiscard]] bool keyMapAND(const KeyMap& a, const KeyMap& b);
/// Writes the 16 bytes to the system log, in hexadecimal.
void logKeyMap(const KeyMap& map);

} // namespace tavrel
