#include "platform/linux/x11/keyboard/RecordedKeyEvents.h"

#include <algorithm>
#include <cstdint>

namespace tavrel {

namespace {
bool isPress(const xcb_key_press_event_t& event) {
  return (event.response_type & 0x7f) == XCB_KEY_PRESS;
}

// What has to be down before each event, as the next event of each key tells, and after the last.
std::vector<ServerKeySet> downBefore(const RecordedKeyEvents& events, const ServerKeySet& downNow) {
  std::vector<ServerKeySet> down(events.size() + 1, downNow);
  for (std::size_t at = events.size(); at > 0; --at) {
    down[at - 1] = down[at];
    down[at - 1].set(events[at - 1].detail, !isPress(events[at - 1]));
  }
  return down;
}

ServerKeySet keysWith(unsigned bits, const ModifierKeys& modifiers) {
  ServerKeySet keys;
  for (std::size_t code = 0; code < keys.size(); ++code)
    keys[code] = modifiers.keys[code] && (modifiers.bits[code] & bits) != 0;
  return keys;
}

std::size_t lowestOf(const ServerKeySet& keys) {
  std::size_t code = 0;
  while (!keys[code])
    ++code;
  return code;
}

// The modifiers held at a key. Its state is right where it names one; made-up events have none.
ServerKeySet heldAt(const xcb_key_press_event_t& key, ServerKeySet held,
                    const ServerKeySet& expected, const ModifierKeys& modifiers) {
  held &= expected | keysWith(key.state, modifiers);
  for (unsigned bit = 1; bit <= XCB_MOD_MASK_5; bit <<= 1U) {
    const ServerKeySet keys = keysWith(bit, modifiers);
    if ((key.state & bit) == 0 || (held & keys).any() || keys.none())
      continue;
    held.set(lowestOf((keys & expected).any() ? keys & expected : keys));
  }
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
                                    const ModifierKeys& modifiers, const ServerKeySet& locks) {
  Retyping retyping;
  const std::vector<ServerKeySet> expected = downBefore(events, downNow);
  ServerKeySet held = expected.front() & modifiers.keys;
  for (std::size_t at = 0; at < events.size(); ++at) {
    const xcb_key_press_event_t& event = events[at];
    const std::size_t code = event.detail;
    if (locks[code])
      continue; // it has taken effect already
    if (modifiers.keys[code]) {
      held.set(code, isPress(event));
    } else if (isPress(event)) {
      held = heldAt(event, held, expected[at], modifiers);
      retyping.moveTo((retyping.down() & ~modifiers.keys) | held);
      retyping.add(code, KeyDirection::down);
    } else if (retyping.down()[code]) {
      retyping.add(code, KeyDirection::up);
    }
  }
  retyping.moveTo({});
  return std::move(retyping.keys);
}

} // namespace tavrel
