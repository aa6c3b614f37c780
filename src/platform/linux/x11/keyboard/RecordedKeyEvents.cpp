#include "platform/linux/x11/keyboard/RecordedKeyEvents.h"

#include <algorithm>
#include <cstdint>

namespace tavrel {

namespace {
bool isPress(const xcb_key_press_event_t& event) {
  return (event.response_type & 0x7f) == XCB_KEY_PRESS;
}

ServerKeySet heldBefore(const RecordedKeyEvents& events, ServerKeySet held) {
  for (auto event = events.rbegin(); event != events.rend(); ++event)
    held.set(event->detail, !isPress(*event));
  return held;
}

class Retyping {
public:
  std::vector<ServerKey> keys;

  void moveTo(const ServerKeySet& wanted) {
    for (std::size_t code = 0; code < down_.size(); ++code)
      if (down_[code] != wanted[code])
        add(code, wanted[code] ? KeyDirection::down : KeyDirection::up);
  }
  void add(std::size_t code, KeyDirection direction) {
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

namespace {
// Input methods make up events without a time: they stay beside the one before.
void fillInTimes(RecordedKeyEvents& events) {
  const auto isKnown = [](const auto& event) { return event.time != XCB_CURRENT_TIME; };
  const auto first = std::find_if(events.begin(), events.end(), isKnown);
  xcb_timestamp_t last = first == events.end() ? XCB_CURRENT_TIME : first->time;
  for (xcb_key_press_event_t& event : events)
    last = event.time = isKnown(event) ? event.time : last;
}
} // namespace

RecordedKeyEvents inTheirOrder(RecordedKeyEvents events) {
  fillInTimes(events);
  std::stable_sort(events.begin(), events.end(), [](const auto& one, const auto& other) {
    return static_cast<std::int32_t>(one.time - other.time) < 0; // the time begins anew at 0
  });
  return events;
}

// Modifiers are pressed only when a key needs them: many programs act on one that is tapped alone.
std::vector<ServerKey> keysToRetype(const RecordedKeyEvents& events, const ServerKeySet& downNow,
                                    const ServerKeySet& modifiers, const ServerKeySet& locks) {
  Retyping retyping;
  ServerKeySet held = heldBefore(events, downNow) & modifiers;
  for (const xcb_key_press_event_t& event : events) {
    const std::size_t code = event.detail;
    if (locks[code])
      continue; // it has taken effect already
    if (modifiers[code]) {
      held.set(code, isPress(event));
    } else if (isPress(event)) {
      retyping.moveTo((retyping.down() & ~modifiers) | held);
      retyping.add(code, KeyDirection::down);
    } else if (retyping.down()[code]) {
      retyping.add(code, KeyDirection::up);
    }
  }
  retyping.moveTo({});
  return std::move(retyping.keys);
}

} // namespace tavrel
