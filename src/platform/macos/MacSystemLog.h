#pragma once

#include "platform/SystemLog.h"

namespace tavrel {

/// The system's log. Debug lines are shown when TAVREL_DEBUG stands in the environment.
class MacSystemLog final : public SystemLog {
public:
  void write(const std::string& line) override;
  bool isDebugOn(LogArea area) override;
  void debug(LogArea area, const std::string& line) override;
};

} // namespace tavrel
