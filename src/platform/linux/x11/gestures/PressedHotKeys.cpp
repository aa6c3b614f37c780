#include "platform/linux/x11/gestures/PressedHotKeys.h"

#include "platform/linux/x11/keyboard/KeyGrabs.h"
#include "platform/linux/x11/server/QtConnection.h"
#include "platform/linux/x11/server/XcbReply.h"

#include <QCoreApplication>
#include <QObject>

#include <xcb/xcb.h>

#include <algorithm>
#include <chrono>

namespace tavrel {

namespace {
constexpr std::chrono::milliseconds look{100};
}

// The timer finds releases that went elsewhere: a menu of ours that opens while the key is down
// ends the key's grab, and another program gets the release when the menu closes first.
PressedHotKeys::PressedHotKeys(Find find, std::function<void()> wentDown, Released released)
    : find_(std::move(find)), wentDown_(std::move(wentDown)), tell_(std::move(released)) {
  watch_.setInterval(look);
  QObject::connect(&watch_, &QTimer::timeout, &watch_, [this] { tellReleases(); });
  QCoreApplication::instance()->installNativeEventFilter(this);
}

void PressedHotKeys::forget(EventHotKeyRef reference) {
  for (auto& [key, held] : held_)
    if (held == reference)
      held = 0;
}

bool PressedHotKeys::nativeEventFilter(const QByteArray& type, void* message, qintptr*) {
  if (type != "xcb_generic_event_t")
    return false;
  const auto kind = static_cast<const xcb_generic_event_t*>(message)->response_type;
  if (kind == XCB_KEY_PRESS)
    return pressedAnywhere(*static_cast<const xcb_key_press_event_t*>(message));
  return kind == XCB_KEY_RELEASE && released(*static_cast<const xcb_key_release_event_t*>(message));
}

// The server waits for our word, also for a key that was given up meanwhile.
bool PressedHotKeys::pressedAnywhere(const xcb_key_press_event_t& event) {
  const bool isOurs = pressed(event);
  if (event.event == event.root)
    letKeysThrough(*qtConnection());
  return isOurs;
}

// A held key repeats into whatever window has the keyboard by now, and repeats may still wait when
// it is up already. A release with the time of the press behind it is none: so repeats are made.
bool PressedHotKeys::pressed(const xcb_key_press_event_t& event) {
  const bool repeat = lastRelease_ == KeyMoment(event.detail, event.time);
  if (repeat && (held_.contains(event.detail) || find_(event.detail, event.state & 0xFF) != 0))
    return true;
  if (const auto gone = held_.extract(event.detail); !gone.empty())
    tell_(gone.mapped()); // up and down again before we looked
  const EventHotKeyRef reference =
      event.event == event.root ? find_(event.detail, event.state & 0xFF) : 0;
  if (reference == 0)
    return false;
  held_[event.detail] = reference;
  wentDown_();
  watch_.start();
  return true;
}

bool PressedHotKeys::released(const xcb_key_press_event_t& event) {
  lastRelease_ = {event.detail, event.time};
  if (!held_.contains(event.detail))
    return false;
  tellReleases();
  return true;
}

// A repeat comes as release and press: only the keyboard itself knows.
void PressedHotKeys::tellReleases() {
  xcb_connection_t* connection = qtConnection();
  const auto down = xcbReply(
      connection ? xcb_query_keymap_reply(connection, xcb_query_keymap(connection), nullptr)
                 : nullptr);
  const auto isUp = [&](std::uint8_t key) {
    return down && (down->keys[key / 8] >> (key % 8) & 1) == 0;
  };
  std::erase_if(held_, [&](const auto& held) {
    if (!isUp(held.first))
      return false;
    tell_(held.second);
    return true;
  });
  if (held_.empty())
    watch_.stop();
}

} // namespace tavrel
