#pragma once

#include "platform/SystemEvents.h"

#include <vector>

namespace tavrel {

/// A session that only writes down what it was asked.
class MemorySystemEvents final : public SystemEvents {
public:
  struct Control {
    std::vector<SystemEvent> sent;
    std::int32_t status = 0; ///< the answer
  };
  Control control;

  std::int32_t send(const SystemEvent& event) override {
    control.sent.push_back(event);
    return control.status;
  }
};

} // namespace tavrel
