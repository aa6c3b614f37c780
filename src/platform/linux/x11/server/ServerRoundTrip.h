#pragma once

namespace tavrel {

/// Returns when the display server has done all that was asked of it, as in releasing grabs.
void waitForServer();

/// Whether a pointer button is down anywhere on the desktop.
[[nodiscard]] bool pointerButtonIsDown();

} // namespace tavrel
