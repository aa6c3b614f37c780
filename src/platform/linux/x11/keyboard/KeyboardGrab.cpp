#include "platform/linux/x11/keyboard/KeyboardGrab.h"

#include "platform/linux/x11/keyboard/KeysDown.h"
#include "platform/linux/x11/server/QtConnection.h"
#include "platform/linux/x11/server/XcbReply.h"

#include <xcb/xcb.h>

namespace tavrel {

namespace {
int grabCount = 0;
ServerKeySet keysAtRelease;

// A hidden window that injected events are sent to, which tells them from others.
xcb_window_t injectionWindow() {
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
  ++grabCount;
  take();
}

KeyboardGrab::~KeyboardGrab() {
  if (--grabCount == 0)
    release();
}

// The grab is on the root window, for no window of ours may exist yet. The reply is read for the
// round trip only: where another program has the keyboard, the menu tries again while it shows.
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

void KeyboardGrab::release() {
  xcb_connection_t* server = qtConnection();
  if (!server)
    return;
  const auto keys = xcb_query_keymap(server);
  xcb_ungrab_keyboard(server, XCB_CURRENT_TIME);
  if (const auto down = xcbReply(xcb_query_keymap_reply(server, keys, nullptr)))
    keysAtRelease = keySet(down->keys);
  waitForServer();
}

ServerKeySet KeyboardGrab::downAtLastRelease() {
  return keysAtRelease;
}

bool KeyboardGrab::isHeld() {
  return grabCount > 0;
}

void KeyboardGrab::inject(const RecordedKeyEvents& keys) {
  xcb_connection_t* server = qtConnection();
  if (!server || keys.empty())
    return;
  for (xcb_key_press_event_t key : keys) {
    key.event = injectionWindow();
    xcb_send_event(server, 0, key.event, XCB_EVENT_MASK_NO_EVENT,
                   reinterpret_cast<const char*>(&key));
  }
  waitForServer();
}

bool KeyboardGrab::isInjected(const xcb_key_press_event_t& event) {
  return event.event == injectionWindow();
}

} // namespace tavrel
