#include "platform/linux/x11/keyboard/KeysDown.h"

#include "platform/linux/x11/server/XcbReply.h"

#include <xcb/xcb.h>

namespace tavrel {

std::optional<ServerKeySet> keysDown(xcb_connection_t& connection) {
  const auto reply =
      xcbReply(xcb_query_keymap_reply(&connection, xcb_query_keymap(&connection), nullptr));
  return reply ? std::optional(keySet(reply->keys)) : std::nullopt;
}

ServerKeySet keySet(const std::uint8_t (&bits)[32]) {
  ServerKeySet keys;
  for (std::size_t key = 0; key < keys.size(); ++key)
    keys.set(key, (bits[key / 8] >> (key % 8) & 1) != 0);
  return keys;
}

} // namespace tavrel
