#pragma once

#include "platform/SystemEvents.h"

namespace tavrel {

/// No session manager yet: every request is refused.
class LinuxSystemEvents final : public SystemEvents {
public:
  std::int32_t send(const SystemEvent&) override { return notHandled; }

private:
  static constexpr std::int32_t notHandled = -1708;
};

} // namespace tavrel
