#pragma once

#include <cstdint>
#include <span>

struct xcb_connection_t;

namespace tavrel {

/// A server key code with the exact modifier bits it is pressed with, as a passive grab takes it.
struct KeyGrab {
  std::uint8_t key = 0;
  std::uint16_t modifiers = 0;
  friend bool operator==(const KeyGrab&, const KeyGrab&) = default;
};

/// What the server does with keys that follow a grabbed one.
enum class FollowingKeys {
  delivered,
  frozen, ///< kept back until `thawKeyboard`, so that none reaches another program too early
};

/// Grabs all of them on the root window or, when another program has one, none; false then. Keys
/// must not stay frozen for longer than a held key takes to repeat: the X server would repeat the
/// key after it has gone up, and then count it as down.
[[nodiscard]] bool grabKeys(xcb_connection_t& connection, std::span<const KeyGrab> grabs,
                            FollowingKeys following);

/// Returns when the server has released them: keys pressed from then on are not caught.
void ungrabKeys(xcb_connection_t& connection, std::span<const KeyGrab> grabs);

/// Lets frozen keys go on. Due after each press that came from a passive grab, whatever was done
/// about it.
void thawKeyboard(xcb_connection_t& connection);

} // namespace tavrel
