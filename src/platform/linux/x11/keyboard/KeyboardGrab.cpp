#include "platform/linux/x11/keyboard/KeyboardGrab.h"

#include "platform/linux/x11/server/QtConnection.h"
#include "platform/linux/x11/server/ServerRoundTrip.h"
#include "platform/linux/x11/server/XcbReply.h"

#include <xcb/xcb.h>

namespace tavrel {

namespace {
int keyboardHolders = 0;

// A window of ours that is never shown: key events are sent there, and find their place among those
// that came already and wait.
xcb_window_t keyWindow() {
  static const xcb_window_t window = [] {
    xcb_connection_t& server = *qtConnection();
    const xcb_window_t made = xcb_generate_id(&server);
    xcb_create_window(&server, 0, made, rootWindow(server), -1, -1, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
    return made;
  }();
  return window;
}
} // namespace

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

void KeyboardGrab::tellOf(const RecordedKeyEvents& typed) {
  xcb_connection_t* server = qtConnection();
  if (!server || typed.empty())
    return;
  for (xcb_key_press_event_t key : typed) {
    key.event = keyWindow();
    xcb_send_event(server, 0, key.event, XCB_EVENT_MASK_NO_EVENT,
                   reinterpret_cast<const char*>(&key));
  }
  waitForServer();
}

bool KeyboardGrab::isTold(const xcb_key_press_event_t& event) {
  return event.event == keyWindow();
}

} // namespace tavrel
