#import "platform/macos/MacSystemLog.h"

#import "platform/macos/Conversions.h"

#include <cstdlib>

namespace tavrel {

void MacSystemLog::write(const std::string& line) {
  NSLog(@"%@", nsString(line));
}

bool MacSystemLog::isDebugOn(LogArea) {
  return std::getenv("TAVREL_DEBUG") != nullptr;
}

void MacSystemLog::debug(LogArea area, const std::string& line) {
  if (isDebugOn(area))
    write(line);
}

} // namespace tavrel
