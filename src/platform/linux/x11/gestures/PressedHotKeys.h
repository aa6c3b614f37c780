#pragma once

#include "platform/HotKeys.h"

#include <QAbstractNativeEventFilter>
#include <QTimer>

#include <functional>
#include <map>
#include <utility>

struct xcb_key_press_event_t;

namespace tavrel {

/// Follows the keys of hot keys from press to release, auto-repeat left out, and keeps their events
/// from our own windows.
class PressedHotKeys final : private QAbstractNativeEventFilter {
public:
  /// The hot key that has this server key code with these modifier bits; 0 for none.
  using Find = std::function<EventHotKeyRef(std::uint8_t key, std::uint16_t modifiers)>;
  /// Called with 0 when the hot key was unregistered while it was down, and none is in its place.
  using OnRelease = std::function<void(EventHotKeyRef)>;

  PressedHotKeys(Find find, std::function<void()> onPress, OnRelease onRelease);

  /// The hot key is unregistered; its key may still be down. If one is registered for it by the
  /// time it goes up, that one is meant: all are registered anew when one is handed on.
  void forget(EventHotKeyRef reference);

private:
  bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;
  bool handlePress(const xcb_key_press_event_t& event);
  bool recordPress(const xcb_key_press_event_t& event);
  bool handleRelease(const xcb_key_press_event_t& event);
  void reportReleases();

  using KeyEventTime = std::pair<std::uint8_t, std::uint32_t>; ///< server key code and server time

  Find find_;
  std::function<void()> onPress_;
  OnRelease onRelease_;
  struct Press {
    EventHotKeyRef reference = 0; ///< 0: unregistered since
    std::uint16_t modifiers = 0;
  };
  [[nodiscard]] EventHotKeyRef hotKeyOf(std::uint8_t key, const Press& press) const;

  std::map<std::uint8_t, Press> pressed_; ///< by server key code
  KeyEventTime lastRelease_;
  QTimer releasePoll_;
};

} // namespace tavrel
