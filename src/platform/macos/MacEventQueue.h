#pragma once

#include "platform/EventQueue.h"

namespace tavrel {

/// The application's own queue.
class MacEventQueue final : public EventQueue {
public:
  std::optional<Event> nextEvent(std::uint64_t mask, double until, Dequeue dequeue) override;
  std::uint32_t currentButtonState() override;
};

} // namespace tavrel
