#pragma once

#include "platform/HotKeys.h"

#include <QAbstractNativeEventFilter>
#include <QTimer>

#include <functional>
#include <map>
#include <utility>

struct xcb_key_press_event_t;

namespace tavrel {

/// Follows grabbed keys from going down to truly going up, and keeps their events from windows.
class PressedHotKeys final : private QAbstractNativeEventFilter {
public:
  /// 0 when no hot key has the key with these modifier bits.
  using Find = std::function<EventHotKeyRef(std::uint8_t key, std::uint16_t modifiers)>;
  /// Told with 0 when it is no hot key any more.
  using Released = std::function<void(EventHotKeyRef)>;

  PressedHotKeys(Find find, std::function<void()> wentDown, Released released);

  /// A key that is still held has no meaning any more.
  void forget(EventHotKeyRef reference);

private:
  bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;
  bool pressedAnywhere(const xcb_key_press_event_t& event);
  bool pressed(const xcb_key_press_event_t& event);
  bool released(const xcb_key_press_event_t& event);
  void tellReleases();

  using KeyMoment = std::pair<std::uint8_t, std::uint32_t>; ///< server key code and server time

  Find find_;
  std::function<void()> wentDown_;
  Released tell_;
  std::map<std::uint8_t, EventHotKeyRef> held_; ///< by server key code; 0: of no hot key any more
  KeyMoment lastRelease_;
  QTimer watch_;
};

} // namespace tavrel
