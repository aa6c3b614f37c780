#pragma once

#include <cstdint>
#include <span>

struct xcb_connection_t;

namespace tavrel {

/// A key of the server with the exact modifier bits it is pressed with.
struct KeyGrab {
  std::uint8_t key = 0;
  std::uint16_t modifiers = 0;
  friend bool operator==(const KeyGrab&, const KeyGrab&) = default;
};

/// Takes all of them on the root window or, when another program has one, none; true when taken.
/// From the press of one on, the server keeps all other keys back until `letKeysThrough`, so that
/// none of them can overtake us.
[[nodiscard]] bool grabKeys(xcb_connection_t& connection, std::span<const KeyGrab> grabs);

/// Returns when the server has given them up: what is typed from then on is not caught.
void ungrabKeys(xcb_connection_t& connection, std::span<const KeyGrab> grabs);

/// After each press of a key that came to the root window, and whatever else was done about it.
void letKeysThrough(xcb_connection_t& connection);

} // namespace tavrel
