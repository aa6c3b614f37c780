#pragma once

#include "platform/Event.h"

#include <cstdint>
#include <optional>

namespace tavrel {

enum class Dequeue { no, yes };

/// The events of this application that wait to be handled, and the mouse as it is now.
class EventQueue {
public:
  virtual ~EventQueue() = default;

  /// The first waiting event whose type is in the mask (bit N for type N); waits for one, in the
  /// mode in which only mouse events come in, until `until` (seconds since 2001-01-01 GMT; the past
  /// waits not at all). Nothing when none came. The rest of the core runs on as in a menu.
  [[nodiscard]] virtual std::optional<Event> nextEvent(std::uint64_t mask, double until,
                                                       Dequeue dequeue) = 0;

  /// A bit for each mouse button that is down now, the primary one in bit 0.
  [[nodiscard]] virtual std::uint32_t currentButtonState() = 0;
};

} // namespace tavrel
