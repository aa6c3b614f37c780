#pragma once

#include "platform/SystemLog.h"

namespace tavrel {

/// Standard error, a line an entry, each with the program's name in front. Debug lines go to the
/// logging category of their area: QT_LOGGING_RULES=tavrel.menu.debug=true shows them.
class LinuxSystemLog final : public SystemLog {
public:
  void write(const std::string& line) override;
  bool isDebugOn(LogArea area) override;
  void debug(LogArea area, const std::string& line) override;
};

} // namespace tavrel
