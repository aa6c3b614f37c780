#pragma once

#include <string>

namespace tavrel {

/// The system log. Few lines go there; there are no levels.
class SystemLog {
public:
  virtual ~SystemLog() = default;
  /// One entry, on standard error where the desktop has no log of its own.
  virtual void write(const std::string& line) = 0;
};

} // namespace tavrel
