#include "platform/linux/x11/gestures/PressedHotKeys.h"

#include "platform/linux/x11/keyboard/KeyGrabs.h"
#include "platform/linux/x11/keyboard/KeyboardGrab.h"
#include "platform/linux/x11/keyboard/KeysDown.h"
#include "platform/linux/x11/server/QtConnection.h"

#include <QCoreApplication>
#include <QObject>

#include <xcb/xcb.h>

#include <algorithm>
#include <chrono>

namespace tavrel {

namespace {
constexpr std::chrono::milliseconds releasePollInterval{100};
}

// The poll finds releases that do not come here: a menu of ours that opens while the key is down
// takes the key's grab over, and when it closes first, another program gets the release.
PressedHotKeys::PressedHotKeys(Find find, std::function<void()> onPress, OnRelease onRelease)
    : find_(std::move(find)), onPress_(std::move(onPress)), onRelease_(std::move(onRelease)) {
  releasePoll_.setInterval(releasePollInterval);
  QObject::connect(&releasePoll_, &QTimer::timeout, &releasePoll_, [this] { reportReleases(); });
  QCoreApplication::instance()->installNativeEventFilter(this);
}

void PressedHotKeys::forget(EventHotKeyRef reference) {
  for (auto& [key, press] : pressed_)
    if (press.reference == reference)
      press.reference = 0;
}

EventHotKeyRef PressedHotKeys::hotKeyOf(std::uint8_t key, const Press& press) const {
  return press.reference != 0 ? press.reference : find_(key, press.modifiers);
}

bool PressedHotKeys::nativeEventFilter(const QByteArray& type, void* message, qintptr*) {
  if (type != "xcb_generic_event_t")
    return false;
  // What the user pressed while a keystroke was posted is sent to us afterwards.
  const auto kind = static_cast<const xcb_generic_event_t*>(message)->response_type & 0x7F;
  if (kind == XCB_KEY_PRESS)
    return handlePress(*static_cast<const xcb_key_press_event_t*>(message));
  return kind == XCB_KEY_RELEASE &&
         handleRelease(*static_cast<const xcb_key_release_event_t*>(message));
}

// The server holds the following keys back until it is told to go on, also for a key that has been
// ungrabbed meanwhile.
bool PressedHotKeys::handlePress(const xcb_key_press_event_t& event) {
  const bool isOurs = recordPress(event);
  if (event.event == event.root)
    thawKeyboard(*qtConnection());
  return isOurs;
}

// Auto-repeat comes as a release and a press with the same time. It goes to whatever window has the
// keyboard by then, and may still be queued when the key is up already.
bool PressedHotKeys::recordPress(const xcb_key_press_event_t& event) {
  const bool repeat = lastRelease_ == KeyEventTime(event.detail, event.time);
  if (repeat && (pressed_.contains(event.detail) || find_(event.detail, event.state & 0xFF) != 0))
    return true;
  if (const auto gone = pressed_.extract(event.detail); !gone.empty())
    onRelease_(hotKeyOf(gone.key(),
                        gone.mapped())); // it went up and down again before the events were read
  const auto modifiers = static_cast<std::uint16_t>(event.state & 0xFF);
  const bool isGrabbed = event.event == event.root || KeyboardGrab::isInjected(event);
  const EventHotKeyRef reference = isGrabbed ? find_(event.detail, modifiers) : 0;
  if (reference == 0)
    return false;
  pressed_[event.detail] = {reference, modifiers};
  onPress_();
  releasePoll_.start();
  return true;
}

bool PressedHotKeys::handleRelease(const xcb_key_press_event_t& event) {
  lastRelease_ = {event.detail, event.time};
  if (!pressed_.contains(event.detail))
    return false;
  reportReleases();
  return true;
}

// A release may be one of auto-repeat: the keyboard is asked whether the key is up.
void PressedHotKeys::reportReleases() {
  xcb_connection_t* connection = qtConnection();
  const auto down = connection ? keysDown(*connection) : std::nullopt;
  const auto isUp = [&](std::uint8_t key) { return down && !down->test(key); };
  std::erase_if(pressed_, [&](const auto& held) {
    if (!isUp(held.first))
      return false;
    onRelease_(hotKeyOf(held.first, held.second));
    return true;
  });
  if (pressed_.empty())
    releasePoll_.stop();
}

} // namespace tavrel
