#pragma once

#include "platform/SystemLog.h"

#include <vector>

namespace tavrel {

/// A log that a test reads.
class MemorySystemLog final : public SystemLog {
public:
  struct Control {
    std::vector<std::string> lines;
  };
  Control control;

  void write(const std::string& line) override { control.lines.push_back(line); }
};

} // namespace tavrel
