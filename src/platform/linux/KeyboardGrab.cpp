#include "platform/linux/KeyboardGrab.h"

#include "platform/linux/QtConnection.h"
#include "platform/linux/ServerRoundTrip.h"
#include "platform/linux/XcbReply.h"

#include <xcb/xcb.h>

namespace tavrel {

namespace {
int keyboardHolders = 0;
}

KeyboardGrab::KeyboardGrab() {
  ++keyboardHolders;
  take();
}

KeyboardGrab::~KeyboardGrab() {
  if (--keyboardHolders == 0)
    letGo();
}

// The root window can be grabbed before any of ours is there. Whether it worked is not asked: where
// it did not, the menu tries again as soon as it shows.
void KeyboardGrab::take() {
  xcb_connection_t* server = qtConnection();
  if (!server)
    return;
  (void)xcbReply(
      xcb_grab_keyboard_reply(server,
                              xcb_grab_keyboard(server, 0, rootWindow(*server), XCB_CURRENT_TIME,
                                                XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC),
                              nullptr));
}

void KeyboardGrab::letGo() {
  xcb_connection_t* server = qtConnection();
  if (!server)
    return;
  xcb_ungrab_keyboard(server, XCB_CURRENT_TIME);
  waitForServer();
}

bool KeyboardGrab::isHeld() {
  return keyboardHolders > 0;
}

} // namespace tavrel
