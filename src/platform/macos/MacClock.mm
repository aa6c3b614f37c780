#import "platform/macos/MacClock.h"

#include "platform/macos/MacTime.h"

#include <algorithm>
#include <chrono>
#include <thread>

namespace tavrel {

namespace {

using Seconds = std::chrono::duration<double>;

// Nothing here waits that long, and no clock counts further than it can.
constexpr double longestSpan = 24 * 86400.0;

// In this order the comparisons turn NaN into 0, too.
double boundedSpan(double seconds) {
  return std::min(longestSpan, std::max(0.0, seconds));
}

} // namespace

MacClock::~MacClock() {
  for (const auto& [id, timer] : timers_)
    CFRunLoopTimerInvalidate(timer.get());
}

double MacClock::now() {
  return secondsNow();
}

void MacClock::sleep(double seconds) {
  std::this_thread::sleep_for(Seconds(boundedSpan(seconds)));
}

TimerId MacClock::schedule(double seconds, std::function<void()> action) {
  const TimerId id = ++last_;
  const CFAbsoluteTime due = CFAbsoluteTimeGetCurrent() + boundedSpan(seconds);
  CFOwned<CFRunLoopTimerRef> timer(
      CFRunLoopTimerCreateWithHandler(nullptr, due, 0, 0, 0, ^(CFRunLoopTimerRef) {
        @autoreleasepool {
          const std::function<void()> call = action; // the timer, and this block, may go first
          timers_.erase(id);
          call();
        }
      }));
  CFRunLoopAddTimer(CFRunLoopGetMain(), timer.get(), kCFRunLoopCommonModes);
  timers_.emplace(id, std::move(timer));
  return id;
}

void MacClock::cancel(TimerId timer) {
  const auto found = timers_.find(timer);
  if (found == timers_.end())
    return;
  CFRunLoopTimerInvalidate(found->second.get());
  timers_.erase(found);
}

} // namespace tavrel
