#pragma once

#include "platform/linux/x11/keyboard/RecordedKeyEvents.h"

#include <cstdint>
#include <vector>

namespace tavrel {

/// Grabs the physical keyboards, but not the one that programs post through (XTest): while this
/// lives, posted keys reach the focused client, and keys that the user presses come here. So a copy
/// can be posted while the user types for the menu.
class PhysicalKeyboards {
public:
  /// Needs a connection with XInput 2 on which nothing else reads events.
  explicit PhysicalKeyboards(xcb_connection_t& connection);
  ~PhysicalKeyboards() { release(); }
  PhysicalKeyboards(const PhysicalKeyboards&) = delete;
  PhysicalKeyboards& operator=(const PhysicalKeyboards&) = delete;

  /// The key events that have arrived since the last call.
  [[nodiscard]] RecordedKeyEvents take();
  /// Returns when the server has released the keyboards; `take` once more afterwards.
  void release();

private:
  xcb_connection_t& connection_;
  std::vector<std::uint16_t> grabbed_;
};

/// Their device numbers.
[[nodiscard]] std::vector<std::uint16_t> physicalKeyboards(xcb_connection_t& connection);

/// Those of the keyboards that programs post through (XTest).
[[nodiscard]] std::vector<std::uint16_t> programKeyboards(xcb_connection_t& connection);

} // namespace tavrel
