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

/// What becomes of the keys that follow a grabbed one.
enum class FollowingKeys {
  comeAtOnce,
  wait, ///< in the server, until `letKeysThrough`: none of them can overtake us
};

/// Takes all of them on the root window or, when another program has one, none; true when taken.
/// They must not wait for longer than a held key takes to repeat: the server would repeat it after
/// it has gone up, and then take it to be down.
[[nodiscard]] bool grabKeys(xcb_connection_t& connection, std::span<const KeyGrab> grabs,
                            FollowingKeys following);

/// Returns when the server has given them up: what is typed from then on is not caught.
void ungrabKeys(xcb_connection_t& connection, std::span<const KeyGrab> grabs);

/// After each press of a key that came to the root window, and whatever else was done about it.
void letKeysThrough(xcb_connection_t& connection);

} // namespace tavrel
