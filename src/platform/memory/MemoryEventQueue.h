#pragma once

#include "platform/Clock.h"
#include "platform/EventQueue.h"

#include <deque>
#include <vector>

namespace tavrel {

/// Events that a test has waiting. Each has a time; a wait sleeps up to it on the clock.
class MemoryEventQueue final : public EventQueue {
public:
  explicit MemoryEventQueue(Clock& clock) : clock_(clock) {}

  struct Control {
    std::deque<Event> waiting;     ///< in the order of their time stamps
    std::uint32_t buttonState = 0; ///< a bit for each button down
    std::vector<double> waitedUntil;
  };
  Control control;

  std::optional<Event> nextEvent(std::uint64_t mask, double until, Dequeue dequeue) override;
  std::uint32_t currentButtonState() override { return control.buttonState; }

private:
  Clock& clock_;
};

} // namespace tavrel
