#pragma once

#include <cstdint>

struct xcb_connection_t;

namespace tavrel {

/// The process that made a window, as the server knows it (X-Resource extension 1.2), whichever of
/// its connections that was; 0 for a program on another
/// machine, for a window that is gone, and on a server without the extension.
[[nodiscard]] std::int32_t processOfClient(xcb_connection_t& server, std::uint32_t window);

} // namespace tavrel
