#include "platform/linux/x11/keyboard/LayoutChanges.h"

#include "platform/linux/x11/server/XcbXkb.h"

namespace tavrel {

void selectLayoutChanges(xcb_connection_t& connection) {
  constexpr std::uint16_t kinds =
      XCB_XKB_EVENT_TYPE_NEW_KEYBOARD_NOTIFY | XCB_XKB_EVENT_TYPE_MAP_NOTIFY;
  constexpr std::uint16_t allParts = 0xFF;
  xcb_xkb_select_events(&connection, XCB_XKB_ID_USE_CORE_KBD, kinds, 0, kinds, allParts, allParts,
                        nullptr);
  xcb_flush(&connection);
}

// Events of XKB have their kind in the second byte.
bool isLayoutChange(xcb_connection_t& connection, const xcb_generic_event_t& event) {
  const int type = event.response_type & 0x7F;
  if (type == XCB_MAPPING_NOTIFY)
    return true;
  const auto* xkb = xcb_get_extension_data(&connection, &xcb_xkb_id);
  return xkb && xkb->present != 0 && type == xkb->first_event &&
         (event.pad0 == XCB_XKB_NEW_KEYBOARD_NOTIFY || event.pad0 == XCB_XKB_MAP_NOTIFY);
}

} // namespace tavrel
