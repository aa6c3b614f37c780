#pragma once

#include "platform/Clock.h"
#include "platform/macos/CFOwned.h"

#include <map>

namespace tavrel {

/// The real time, stepped forward by the steady clock so that it never runs backwards. Timers fire
/// from the main run loop, while a menu is open, too.
class MacClock final : public Clock {
public:
  MacClock() = default;
  MacClock(const MacClock&) = delete;
  MacClock& operator=(const MacClock&) = delete;
  ~MacClock() override;

  double now() override;
  void sleep(double seconds) override;
  TimerId schedule(double seconds, std::function<void()> action) override;
  void cancel(TimerId timer) override;

private:
  std::map<TimerId, CFOwned<CFRunLoopTimerRef>> timers_;
  TimerId last_ = 0;
};

} // namespace tavrel
