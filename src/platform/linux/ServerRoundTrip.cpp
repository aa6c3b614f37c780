#include "platform/linux/ServerRoundTrip.h"

#include "platform/linux/XcbReply.h"

#include <QGuiApplication>

#include <xcb/xcb.h>

namespace tavrel {

namespace {
xcb_connection_t* connection() {
  const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  return x11 ? x11->connection() : nullptr;
}
} // namespace

void waitForServer() {
  if (xcb_connection_t* server = connection())
    xcbReply(xcb_get_input_focus_reply(server, xcb_get_input_focus(server), nullptr));
}

bool pointerButtonIsDown() {
  xcb_connection_t* server = connection();
  if (!server)
    return false;
  constexpr auto buttons = XCB_BUTTON_MASK_1 | XCB_BUTTON_MASK_2 | XCB_BUTTON_MASK_3;
  const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(server)).data->root;
  const auto reply =
      xcbReply(xcb_query_pointer_reply(server, xcb_query_pointer(server, root), nullptr));
  return reply && (reply->mask & buttons) != 0;
}

} // namespace tavrel
