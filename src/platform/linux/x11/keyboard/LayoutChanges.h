#pragma once

#include <xcb/xcb.h>

namespace tavrel {

/// Has the server tell this connection when its layout or its modifiers change.
/// For a connection that has asked for XKB.
void selectLayoutChanges(xcb_connection_t& connection);

/// Whether an event tells that the layout or the modifiers have changed.
[[nodiscard]] bool isLayoutChange(xcb_connection_t& connection, const xcb_generic_event_t& event);

} // namespace tavrel
