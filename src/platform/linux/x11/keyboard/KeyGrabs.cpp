#include "platform/linux/x11/keyboard/KeyGrabs.h"

#include "platform/linux/x11/server/QtConnection.h"
#include "platform/linux/x11/server/XcbReply.h"

#include <xcb/xcb.h>

#include <vector>

namespace tavrel {

bool grabKeys(xcb_connection_t& connection, std::span<const KeyGrab> grabs,
              FollowingKeys following) {
  const std::uint8_t mode =
      following == FollowingKeys::frozen ? XCB_GRAB_MODE_SYNC : XCB_GRAB_MODE_ASYNC;
  const xcb_window_t root = rootWindow(connection);
  std::vector<xcb_void_cookie_t> requests;
  for (const KeyGrab& grab : grabs)
    requests.push_back(xcb_grab_key_checked(&connection, 0, root, grab.modifiers, grab.key,
                                            XCB_GRAB_MODE_ASYNC, mode));
  std::vector<KeyGrab> grabbed;
  for (std::size_t i = 0; i < requests.size(); ++i)
    if (!xcbReply(xcb_request_check(&connection, requests[i])))
      grabbed.push_back(grabs[i]);
  if (grabbed.size() == grabs.size())
    return true;
  ungrabKeys(connection, grabbed);
  return false;
}

void ungrabKeys(xcb_connection_t& connection, std::span<const KeyGrab> grabs) {
  const xcb_window_t root = rootWindow(connection);
  for (const KeyGrab& grab : grabs)
    xcb_ungrab_key(&connection, grab.key, root, grab.modifiers);
  xcbReply(xcb_get_input_focus_reply(&connection, xcb_get_input_focus(&connection), nullptr));
}

void thawKeyboard(xcb_connection_t& connection) {
  xcb_allow_events(&connection, XCB_ALLOW_ASYNC_KEYBOARD, XCB_CURRENT_TIME);
  xcb_flush(&connection);
}

} // namespace tavrel
