#include "platform/linux/x11/server/QtConnection.h"

#include "platform/linux/x11/server/XcbReply.h"

#include <QGuiApplication>

#include <xcb/xcb.h>

namespace tavrel {

xcb_connection_t* qtConnection() {
  const auto* x11 =
      qGuiApp ? qGuiApp->nativeInterface<QNativeInterface::QX11Application>() : nullptr;
  return x11 ? x11->connection() : nullptr;
}

std::uint32_t rootWindow(xcb_connection_t& connection) {
  return xcb_setup_roots_iterator(xcb_get_setup(&connection)).data->root;
}

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
