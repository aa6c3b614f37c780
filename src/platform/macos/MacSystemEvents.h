#pragma once

#include "platform/SystemEvents.h"

namespace tavrel {

/// Apple events to the system process.
class MacSystemEvents final : public SystemEvents {
public:
  std::int32_t send(const SystemEvent& event) override;
};

} // namespace tavrel
