#include "platform/linux/x11/gestures/MenuKeyForwarder.h"

#include "platform/linux/x11/gestures/GestureKeyBuffer.h"
#include "platform/linux/x11/server/QtConnection.h"

#include <QCoreApplication>

#include <xcb/xcb.h>

#include <chrono>
#include <utility>

namespace tavrel {

namespace {
constexpr std::chrono::milliseconds betweenLooksForTheWindow{1};
constexpr std::uint8_t sentByClient = 0x80;
} // namespace

MenuKeyForwarder::MenuKeyForwarder(std::function<std::uint32_t()> menuWindow)
    : menuWindow_(std::move(menuWindow)) {
  grab_.emplace();
  waiting_ = GestureKeyBuffer::handOver();
  QCoreApplication::instance()->installNativeEventFilter(this);
  look_.setInterval(betweenLooksForTheWindow);
  look_.callOnTimeout([this] { sendOn(); });
  if (!waiting_.empty())
    look_.start();
}

MenuKeyForwarder::~MenuKeyForwarder() {
  QCoreApplication::instance()->removeNativeEventFilter(this);
  grab_.reset();
  GestureKeyBuffer::takeBack(waiting_);
}

bool MenuKeyForwarder::nativeEventFilter(const QByteArray& eventType, void* message, qintptr*) {
  auto* event = static_cast<xcb_generic_event_t*>(message);
  if (!qtConnection() || eventType != "xcb_generic_event_t" || !isKeyEvent(*event))
    return false;
  auto& key = reinterpret_cast<xcb_key_press_event_t&>(*event);
  const bool isOnItsWay = (event->response_type & sentByClient) != 0 && !KeyboardGrab::isTold(key);
  if (!isOnItsWay || menuWindow_() == 0)
    return takeKey(key);
  underWay_ -= underWay_ > 0 ? 1 : 0;
  return false;
}

void MenuKeyForwarder::keep(std::uint32_t code, KeyDirection direction) {
  if (code == 0)
    return; // from no keyboard
  xcb_key_press_event_t key{};
  key.response_type = direction == KeyDirection::down ? XCB_KEY_PRESS : XCB_KEY_RELEASE;
  key.detail = static_cast<xcb_keycode_t>(code);
  waiting_.push_back(key);
}

// The toolkit knows no widget for the root window, nor for the menu's once that has closed, and
// would drop what was typed there. A key must not overtake those that are on their way.
bool MenuKeyForwarder::takeKey(xcb_key_press_event_t& key) {
  const std::uint32_t window = menuWindow_();
  const bool toRoot = key.event == rootWindow(*qtConnection()) || KeyboardGrab::isTold(key);
  const bool mustWait = !waiting_.empty() || underWay_ > 0 || window == 0;
  if (!mustWait && toRoot)
    key.event = window;
  if (!mustWait)
    return false;
  waiting_.push_back(key);
  look_.start();
  sendOn();
  return true;
}

// Sent, an event brings its modifiers along: those of the keyboard may be others by now.
void MenuKeyForwarder::sendOn() {
  const std::uint32_t window = menuWindow_();
  if (window == 0)
    return;
  look_.stop();
  for (xcb_key_press_event_t& key : waiting_) {
    key.event = window;
    xcb_send_event(qtConnection(), 0, window, XCB_EVENT_MASK_NO_EVENT,
                   reinterpret_cast<const char*>(&key));
    ++underWay_;
  }
  waiting_.clear();
  xcb_flush(qtConnection());
}

} // namespace tavrel
