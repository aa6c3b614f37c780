#include "platform/memory/MemoryEventQueue.h"

#include <algorithm>

namespace tavrel {

std::optional<Event> MemoryEventQueue::nextEvent(std::uint64_t mask, double until,
                                                 Dequeue dequeue) {
  control.waitedUntil.push_back(until);
  const auto wanted = [&](const Event& event) {
    return ((mask >> static_cast<unsigned>(event.type)) & 1U) != 0;
  };
  const auto found = std::find_if(control.waiting.begin(), control.waiting.end(), wanted);
  const double limit = std::max(until, clock_.now());
  if (found == control.waiting.end() || found->timestamp > limit) {
    clock_.sleep(limit - clock_.now());
    return std::nullopt;
  }
  clock_.sleep(std::max(0.0, found->timestamp - clock_.now()));
  const Event event = *found;
  if (dequeue == Dequeue::yes)
    control.waiting.erase(found);
  return event;
}

} // namespace tavrel
