#include "platform/linux/x11/windows/WindowAtPoint.h"

#include "platform/linux/x11/server/QtConnection.h"
#include "platform/linux/x11/server/XcbReply.h"

#include <xcb/xcb.h>

#include <algorithm>

namespace tavrel {

namespace {
WindowId childAt(xcb_connection_t& x, WindowId parent, ScreenPixel pixel) {
  const auto reply = xcbReply(xcb_translate_coordinates_reply(
      &x, xcb_translate_coordinates(&x, rootWindow(x), parent, pixel.x, pixel.y), nullptr));
  return reply ? reply->child : 0;
}
} // namespace

// A managed window is a child of the frame that the window manager has drawn around it.
WindowId windowAt(ScreenPixel pixel, DesktopWindows& windows) {
  xcb_connection_t* x = qtConnection();
  if (!x)
    return 0;
  const std::vector<WindowId> managed = windows.windows();
  const WindowId top = childAt(*x, rootWindow(*x), pixel);
  for (WindowId each = top; each != 0; each = childAt(*x, each, pixel))
    if (std::ranges::find(managed, each) != managed.end())
      return each;
  return top;
}

QRect placeOf(WindowId window) {
  xcb_connection_t* x = qtConnection();
  if (!x)
    return {};
  const auto corner = xcbReply(xcb_translate_coordinates_reply(
      x, xcb_translate_coordinates(x, window, rootWindow(*x), 0, 0), nullptr));
  const auto size = xcbReply(xcb_get_geometry_reply(x, xcb_get_geometry(x, window), nullptr));
  return corner && size ? QRect(corner->dst_x, corner->dst_y, size->width, size->height) : QRect();
}

} // namespace tavrel
