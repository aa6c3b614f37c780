#pragma once

#include "platform/SystemLog.h"

namespace tavrel {

/// Standard error, a line an entry, each with the program's name in front.
class LinuxSystemLog final : public SystemLog {
public:
  void write(const std::string& line) override;
};

} // namespace tavrel
