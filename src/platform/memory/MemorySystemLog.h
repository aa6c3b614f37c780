#pragma once

#include "platform/SystemLog.h"

#include <vector>

namespace tavrel {

/// A log that a test reads.
class MemorySystemLog final : public SystemLog {
public:
  struct Control {
    std::vector<std::string> lines;
    bool debugOn = false;
    std::vector<std::string> debugLines;
  };
  Control control;

  void write(const std::string& line) override { control.lines.push_back(line); }
  bool isDebugOn(LogArea) override { return control.debugOn; }
  void debug(LogArea, const std::string& line) override {
    if (control.debugOn)
      control.debugLines.push_back(line);
  }
};

} // namespace tavrel
