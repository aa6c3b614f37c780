#include "platform/linux/x11/windows/ScreenLock.h"

#include "platform/linux/x11/server/QtConnection.h"
#include "platform/linux/x11/server/XcbReply.h"

#include <QGuiApplication>
#include <QScreen>

#include <algorithm>
#include <xcb/xcb.h>

namespace tavrel {

namespace {

// By the pointer: a compositor's window, which covers all of the screen as well, lets it through.
xcb_window_t windowUnderPointer(xcb_connection_t& server) {
  const auto pointer = xcbReply(
      xcb_query_pointer_reply(&server, xcb_query_pointer(&server, rootWindow(server)), nullptr));
  return pointer ? pointer->child : xcb_window_t{XCB_WINDOW_NONE};
}

bool isUnmanaged(xcb_connection_t& server, xcb_window_t window) {
  const auto attributes = xcbReply(xcb_get_window_attributes_reply(
      &server, xcb_get_window_attributes(&server, window), nullptr));
  return attributes && attributes->override_redirect != 0;
}

// Lockers make one window for all monitors, or one for each.
bool coversMonitor(xcb_connection_t& server, xcb_window_t window) {
  const auto place =
      xcbReply(xcb_get_geometry_reply(&server, xcb_get_geometry(&server, window), nullptr));
  const auto screens = QGuiApplication::screens();
  return place && std::any_of(screens.begin(), screens.end(), [&](const QScreen* screen) {
           const QSize pixels = screen->size() * screen->devicePixelRatio();
           return place->width >= pixels.width() && place->height >= pixels.height();
         });
}

bool isKeyboardGrabbed(xcb_connection_t& server) {
  const auto grab = xcbReply(
      xcb_grab_keyboard_reply(&server,
                              xcb_grab_keyboard(&server, 0, rootWindow(server), XCB_CURRENT_TIME,
                                                XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC),
                              nullptr));
  if (grab && grab->status == XCB_GRAB_STATUS_SUCCESS) {
    xcb_ungrab_keyboard(&server, XCB_CURRENT_TIME);
    xcb_flush(&server);
    return false;
  }
  return grab && grab->status == XCB_GRAB_STATUS_ALREADY_GRABBED;
}

} // namespace

bool isScreenLocked(xcb_connection_t& server) {
  const xcb_window_t window = windowUnderPointer(server);
  return window != XCB_WINDOW_NONE && isUnmanaged(server, window) &&
         coversMonitor(server, window) && isKeyboardGrabbed(server);
}

} // namespace tavrel
