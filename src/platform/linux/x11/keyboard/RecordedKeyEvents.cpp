#include "platform/linux/x11/keyboard/RecordedKeyEvents.h"

namespace tavrel {

namespace {
bool isPress(const xcb_key_press_event_t& event) {
  return (event.response_type & 0x7f) == XCB_KEY_PRESS;
}

ServerKeySet heldBefore(const RecordedKeyEvents& typed, ServerKeySet held) {
  for (auto event = typed.rbegin(); event != typed.rend(); ++event)
    held.set(event->detail, !isPress(*event));
  return held;
}

class Retyping {
public:
  std::vector<ServerKey> keys;

  void go(const ServerKeySet& wanted) {
    for (std::size_t code = 0; code < down_.size(); ++code)
      if (down_[code] != wanted[code])
        put(code, wanted[code] ? KeyDirection::down : KeyDirection::up);
  }
  void put(std::size_t code, KeyDirection direction) {
    down_.set(code, direction == KeyDirection::down);
    keys.push_back({static_cast<std::uint8_t>(code), direction});
  }
  [[nodiscard]] const ServerKeySet& down() const { return down_; }

private:
  ServerKeySet down_;
};
} // namespace

bool isKeyEvent(const xcb_generic_event_t& event) {
  const auto type = event.response_type & 0x7f;
  return type == XCB_KEY_PRESS || type == XCB_KEY_RELEASE;
}

// Modifiers go down only as a key needs them: one that is tapped alone means something to many.
std::vector<ServerKey> keysToRetype(const RecordedKeyEvents& typed, const ServerKeySet& downNow,
                                    const ServerKeySet& modifiers, const ServerKeySet& locks) {
  Retyping retyping;
  ServerKeySet held = heldBefore(typed, downNow) & modifiers;
  for (const xcb_key_press_event_t& event : typed) {
    const std::size_t code = event.detail;
    if (locks[code])
      continue; // has done its work
    if (modifiers[code]) {
      held.set(code, isPress(event));
    } else if (isPress(event)) {
      retyping.go((retyping.down() & ~modifiers) | held);
      retyping.put(code, KeyDirection::down);
    } else if (retyping.down()[code]) {
      retyping.put(code, KeyDirection::up);
    }
  }
  retyping.go({});
  return std::move(retyping.keys);
}

} // namespace tavrel
