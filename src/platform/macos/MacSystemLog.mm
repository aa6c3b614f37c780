#import "platform/macos/MacSystemLog.h"

#import "platform/macos/Conversions.h"

namespace tavrel {

void MacSystemLog::write(const std::string& line) {
  NSLog(@"%@", nsString(line));
}

} // namespace tavrel
