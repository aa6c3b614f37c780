#include "platform/linux/x11/server/ServerRoundTrip.h"

#include "platform/linux/x11/server/QtConnection.h"
#include "platform/linux/x11/server/XcbReply.h"

#include <xcb/xcb.h>

namespace tavrel {

void waitForServer() {
  if (xcb_connection_t* server = qtConnection())
    xcbReply(xcb_get_input_focus_reply(server, xcb_get_input_focus(server), nullptr));
}

bool pointerButtonIsDown() {
  xcb_connection_t* server = qtConnection();
  if (!server)
    return false;
  constexpr auto buttons = XCB_BUTTON_MASK_1 | XCB_BUTTON_MASK_2 | XCB_BUTTON_MASK_3;
  const auto reply = xcbReply(
      xcb_query_pointer_reply(server, xcb_query_pointer(server, rootWindow(*server)), nullptr));
  return reply && (reply->mask & buttons) != 0;
}

} // namespace tavrel
