#include "platform/linux/x11/windows/FocusedWindow.h"

#include "platform/linux/x11/server/XcbReply.h"

#include <string_view>
#include <xcb/xcb.h>

namespace tavrel {

namespace {
constexpr std::string_view managedName = "WM_STATE";

xcb_atom_t managedAtom(xcb_connection_t& server) {
  const auto reply = xcbReply(xcb_intern_atom_reply(
      &server, xcb_intern_atom(&server, 0, managedName.size(), managedName.data()), nullptr));
  return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

// The window manager sets WM_STATE on the top-level windows of applications (ICCCM 4.1.3.1), not on
// their child windows nor on its own.
bool isManaged(xcb_connection_t& server, xcb_window_t window, xcb_atom_t mark) {
  const auto state = xcbReply(xcb_get_property_reply(
      &server, xcb_get_property(&server, 0, window, mark, XCB_ATOM_ANY, 0, 0), nullptr));
  return state && state->type != XCB_ATOM_NONE;
}

xcb_window_t parentOf(xcb_connection_t& server, xcb_window_t window) {
  const auto tree =
      xcbReply(xcb_query_tree_reply(&server, xcb_query_tree(&server, window), nullptr));
  return tree ? tree->parent : xcb_window_t{XCB_WINDOW_NONE};
}

xcb_window_t inputFocus(xcb_connection_t& server) {
  const auto focus =
      xcbReply(xcb_get_input_focus_reply(&server, xcb_get_input_focus(&server), nullptr));
  return focus ? focus->focus : xcb_window_t{XCB_INPUT_FOCUS_NONE};
}
} // namespace

std::uint32_t focusedWindow(xcb_connection_t& server, std::uint32_t root) {
  const xcb_atom_t mark = managedAtom(server);
  xcb_window_t window = inputFocus(server);
  while (window > XCB_INPUT_FOCUS_POINTER_ROOT && window != root) {
    if (isManaged(server, window, mark))
      return window;
    window = parentOf(server, window);
  }
  return 0;
}

bool isFocusIn(xcb_connection_t& server, std::uint32_t window) {
  xcb_window_t focus = inputFocus(server);
  while (focus > XCB_INPUT_FOCUS_POINTER_ROOT && focus != window)
    focus = parentOf(server, focus);
  return focus == window;
}

} // namespace tavrel
