#pragma once

#include "platform/linux/x11/keyboard/RecordedKeyEvents.h"

#include <cstdint>
#include <vector>

namespace tavrel {

/// The keyboards that people press, held apart from what programs post: for as long as this lives,
/// keys that are posted reach the focused client, and keys that are pressed come here.
class PhysicalKeyboards {
public:
  /// On a connection that speaks XInput 2 and on which nobody waits for key events.
  explicit PhysicalKeyboards(xcb_connection_t& connection);
  ~PhysicalKeyboards() { letGo(); }
  PhysicalKeyboards(const PhysicalKeyboards&) = delete;
  PhysicalKeyboards& operator=(const PhysicalKeyboards&) = delete;

  /// What was pressed up to now and is not taken yet.
  [[nodiscard]] RecordedKeyEvents take();
  /// Returns when what is pressed goes where it usually does; `take` once more after it.
  void letGo();

private:
  xcb_connection_t& connection_;
  std::vector<std::uint16_t> held_;
};

/// The devices behind them.
[[nodiscard]] std::vector<std::uint16_t> physicalKeyboards(xcb_connection_t& connection);

} // namespace tavrel
