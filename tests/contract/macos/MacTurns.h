#pragma once

#import <AppKit/AppKit.h>

#include <functional>

namespace tavrel {

/// Lets timers, connections and the application's events happen for a while.
inline void letEventsHappen(double seconds) {
  NSDate* const end = [NSDate dateWithTimeIntervalSinceNow:seconds];
  do {
    @autoreleasepool {
      NSEvent* const event = [NSApp nextEventMatchingMask:NSEventMaskAny
                                                untilDate:end
                                                   inMode:NSDefaultRunLoopMode
                                                  dequeue:YES];
      if (event)
        [NSApp sendEvent:event];
    }
  } while (end.timeIntervalSinceNow > 0);
}

/// Whether a condition comes to hold, before a deadline that no healthy machine needs.
[[nodiscard]] inline bool eventually(const std::function<bool()>& condition) {
  NSDate* const deadline = [NSDate dateWithTimeIntervalSinceNow:10];
  while (!condition()) {
    if (deadline.timeIntervalSinceNow < 0)
      return false;
    letEventsHappen(0.01);
  }
  return true;
}

} // namespace tavrel
