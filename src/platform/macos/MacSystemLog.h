#pragma once

#include "platform/SystemLog.h"

namespace tavrel {

/// The system's log.
class MacSystemLog final : public SystemLog {
public:
  void write(const std::string& line) override;
};

} // namespace tavrel
