#pragma once

#include "platform/EventQueue.h"

namespace tavrel {

/// Nothing yet.
class LinuxEventQueue final : public EventQueue {
public:
  std::optional<Event> nextEvent(std::uint64_t, double, Dequeue) override { return std::nullopt; }
  std::uint32_t currentButtonState() override { return 0; }
};

} // namespace tavrel
