#pragma once

#include <cstdint>

namespace tavrel {

/// Numbers the platform gives kinds of events.
enum class EventType : std::int32_t { systemDefined = 14 };

/// Subtype of a system-defined event: a registered hot key was released.
inline constexpr std::int16_t hotKeyReleasedSubtype = 9;

/// One event of the application's event stream.
struct Event {
  EventType type{};
  std::int16_t subtype = 0;
  std::uint64_t data1 = 0; ///< of a hot-key event: the reference the key was registered under
};

/// Receives the events of a stream, one after another.
class EventTarget {
public:
  virtual ~EventTarget() = default;
  virtual void sendEvent(const Event& event) = 0;
};

} // namespace tavrel
