#include "platform/linux/KeyboardHold.h"

#include "platform/linux/QtConnection.h"
#include "platform/linux/XcbReply.h"

#include <QCoreApplication>

#include <xcb/xcb.h>

#include <utility>

namespace tavrel {

namespace {
KeyboardHold* currentHold = nullptr;

bool isKeyEvent(const xcb_generic_event_t& event) {
  const auto type = event.response_type & 0x7f;
  return type == XCB_KEY_PRESS || type == XCB_KEY_RELEASE;
}
} // namespace

KeyboardHold::KeyboardHold(std::function<std::uint32_t()> menuWindow)
    : menuWindow_(std::move(menuWindow)) {
  currentHold = this;
  QCoreApplication::instance()->installNativeEventFilter(this);
  take();
}

KeyboardHold::~KeyboardHold() {
  QCoreApplication::instance()->removeNativeEventFilter(this);
  currentHold = nullptr;
  letGo();
}

KeyboardHold* KeyboardHold::current() {
  return currentHold;
}

// The root window can be grabbed before the menu's window is there. Whether it worked is not asked:
// where it did not, the menu tries again as soon as it shows.
void KeyboardHold::take() {
  xcb_connection_t* server = qtConnection();
  if (!server)
    return;
  (void)xcbReply(
      xcb_grab_keyboard_reply(server,
                              xcb_grab_keyboard(server, 0, rootWindow(*server), XCB_CURRENT_TIME,
                                                XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC),
                              nullptr));
}

void KeyboardHold::letGo() {
  xcb_connection_t* server = qtConnection();
  if (!server)
    return;
  xcb_ungrab_keyboard(server, XCB_CURRENT_TIME);
  (void)xcbReply(xcb_get_input_focus_reply(server, xcb_get_input_focus(server), nullptr));
}

// The toolkit knows no widget for the root window, and would drop what was typed there.
bool KeyboardHold::nativeEventFilter(const QByteArray& eventType, void* message, qintptr*) {
  auto* event = static_cast<xcb_generic_event_t*>(message);
  xcb_connection_t* server = qtConnection();
  if (!server || eventType != "xcb_generic_event_t" || !isKeyEvent(*event))
    return false;
  auto& key = reinterpret_cast<xcb_key_press_event_t&>(*event);
  const std::uint32_t window = menuWindow_();
  if (key.event == rootWindow(*server) && window != 0)
    key.event = window;
  return false;
}

} // namespace tavrel
