#pragma once

struct xcb_connection_t;

namespace tavrel {

/// Whether the screen is locked: another program covers the monitor with a window that no window
/// manager manages, and has grabbed the keyboard. Screen lockers do both (i3lock, XScreenSaver, the
/// one of KDE), and so do full-screen games of SDL 1.2, over which no menu belongs either. To be
/// asked while we have no grab; on a connection that grabs nothing else.
[[nodiscard]] bool isScreenLocked(xcb_connection_t& server);

} // namespace tavrel
