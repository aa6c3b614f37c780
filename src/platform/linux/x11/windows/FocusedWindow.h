#pragma once

#include <cstdint>

struct xcb_connection_t;

namespace tavrel {

/// The window of an application that the keys go to, found from the server's input focus; 0 when
/// they go to none. For window managers that do not name it.
[[nodiscard]] std::uint32_t focusedWindow(xcb_connection_t& server, std::uint32_t root);

} // namespace tavrel
