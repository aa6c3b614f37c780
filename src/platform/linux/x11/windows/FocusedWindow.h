#pragma once

#include <cstdint>

struct xcb_connection_t;

namespace tavrel {

/// The managed window that has the input focus, or that holds the window that has it; 0 for none.
/// For window managers that do not set _NET_ACTIVE_WINDOW.
[[nodiscard]] std::uint32_t focusedWindow(xcb_connection_t& server, std::uint32_t root);

/// Whether the input focus is this window, or a window in it.
[[nodiscard]] bool isFocusIn(xcb_connection_t& server, std::uint32_t window);

} // namespace tavrel
