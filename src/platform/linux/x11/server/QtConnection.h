#pragma once

#include <cstdint>

struct xcb_connection_t;

namespace tavrel {

/// The toolkit's own connection to the X server; null on another kind of display.
[[nodiscard]] xcb_connection_t* qtConnection();

/// The root window of the first screen.
[[nodiscard]] std::uint32_t rootWindow(xcb_connection_t& connection);

/// A round trip on the toolkit's connection: returns when the server has carried out every request
/// sent before, the release of grabs for example.
void waitForServer();

/// Whether a pointer button is down anywhere on the desktop.
[[nodiscard]] bool pointerButtonIsDown();

} // namespace tavrel
