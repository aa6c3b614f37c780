#pragma once

#include "base/Geometry.h"

#include <cstdint>
#include <string>

namespace tavrel {

/// Numbers the platform gives kinds of events.
enum class EventType : std::int32_t {
  leftMouseDown = 1,
  leftMouseUp = 2,
  rightMouseDown = 3,
  leftMouseDragged = 6,
  keyDown = 10,
  keyUp = 11,
  flagsChanged = 12,
  systemDefined = 14
};

/// Subtype of a system-defined event: a registered hot key was released.
inline constexpr std::int16_t hotKeyReleasedSubtype = 9;

/// One event of the application's event stream. What a kind of event does not have stays as it is
/// here.
struct Event {
  EventType type{};
  std::int16_t subtype = 0;
  std::uint64_t data1 = 0;         ///< of a hot-key event: the reference it was registered under
  Point location{};                ///< in the window, origin at its bottom left
  std::uint32_t modifierFlags = 0; ///< interface form (base/Modifiers.h)
  double timestamp = 0;            ///< seconds since 2001-01-01 GMT
  std::int32_t windowNumber = 0;
  std::u16string characters{}; ///< of a key
  bool isRepeat = false;
  std::uint16_t keyCode = 0; ///< virtual key code
  std::int32_t eventNumber = 0;
  std::int32_t clickCount = 0;
  float pressure = 0;
};

/// Receives the events of a stream, one after another.
class EventTarget {
public:
  virtual ~EventTarget() = default;
  virtual void sendEvent(const Event& event) = 0;
};

} // namespace tavrel
