#include "platform/linux/x11/gestures/MenuKeyForwarder.h"

#include "platform/linux/x11/gestures/GestureKeyBuffer.h"
#include "platform/linux/x11/server/QtConnection.h"

#include <QCoreApplication>

#include <xcb/xcb.h>

#include <chrono>
#include <utility>

namespace tavrel {

namespace {
constexpr std::chrono::milliseconds windowPollInterval{1};
constexpr std::uint8_t sentByClient = 0x80;
} // namespace

MenuKeyForwarder::MenuKeyForwarder(std::function<std::uint32_t()> menuWindow)
    : menuWindow_(std::move(menuWindow)) {
  grab_.emplace();
  pendingKeys_ = GestureKeyBuffer::handOverToMenu();
  QCoreApplication::instance()->installNativeEventFilter(this);
  windowPoll_.setInterval(windowPollInterval);
  windowPoll_.callOnTimeout([this] { forwardPending(); });
  if (!pendingKeys_.empty())
    windowPoll_.start();
}

MenuKeyForwarder::~MenuKeyForwarder() {
  QCoreApplication::instance()->removeNativeEventFilter(this);
  grab_.reset();
  GestureKeyBuffer::takeBackFromMenu(pendingKeys_);
}

bool MenuKeyForwarder::nativeEventFilter(const QByteArray& eventType, void* message, qintptr*) {
  auto* event = static_cast<xcb_generic_event_t*>(message);
  if (!qtConnection() || eventType != "xcb_generic_event_t" || !isKeyEvent(*event))
    return false;
  auto& key = reinterpret_cast<xcb_key_press_event_t&>(*event);
  const bool isForwarded =
      (event->response_type & sentByClient) != 0 && !KeyboardGrab::isInjected(key);
  if (!isForwarded || menuWindow_() == 0)
    return redirectKey(key);
  inFlight_ -= inFlight_ > 0 ? 1 : 0;
  return false;
}

void MenuKeyForwarder::keepKey(const ReadKey& read) {
  if (read.code == 0)
    return; // an event that the toolkit made up, from no keyboard
  xcb_key_press_event_t key{};
  key.response_type = read.direction == KeyDirection::down ? XCB_KEY_PRESS : XCB_KEY_RELEASE;
  key.detail = static_cast<xcb_keycode_t>(read.code);
  key.time = read.time;
  key.state = static_cast<std::uint16_t>(read.modifiers);
  pendingKeys_.push_back(key);
}

// Keys of the grab are reported to the root window. The toolkit has no widget for that, nor for the
// menu's window once it has closed, and would drop them. A key must not overtake those that are
// pending or in flight.
bool MenuKeyForwarder::redirectKey(xcb_key_press_event_t& key) {
  const std::uint32_t window = menuWindow_();
  const bool toRoot = key.event == rootWindow(*qtConnection()) || KeyboardGrab::isInjected(key);
  const bool mustWait = !pendingKeys_.empty() || inFlight_ > 0 || window == 0;
  if (!mustWait && toRoot)
    key.event = window;
  if (!mustWait)
    return false;
  pendingKeys_.push_back(key);
  windowPoll_.start();
  forwardPending();
  return true;
}

// Sent by way of the server, so that each keeps its own modifier state: by now the keyboard may
// have another.
void MenuKeyForwarder::forwardPending() {
  const std::uint32_t window = menuWindow_();
  if (window == 0)
    return;
  windowPoll_.stop();
  for (xcb_key_press_event_t& key : pendingKeys_) {
    key.event = window;
    xcb_send_event(qtConnection(), 0, window, XCB_EVENT_MASK_NO_EVENT,
                   reinterpret_cast<const char*>(&key));
    ++inFlight_;
  }
  pendingKeys_.clear();
  xcb_flush(qtConnection());
}

} // namespace tavrel
