#pragma once

#include "platform/Clock.h"

#include <map>
#include <memory>

class QTimer;

namespace tavrel {

/// The real time at the start of the program, and from then on CLOCK_BOOTTIME: setting the system
/// clock does not change it, and it goes on while the machine is suspended. Timers fire from Qt's
/// event loop.
class LinuxClock final : public Clock {
public:
  LinuxClock();
  ~LinuxClock() override;

  double now() override;
  void sleep(double seconds) override;
  TimerId schedule(double seconds, std::function<void()> action) override;
  void cancel(TimerId timer) override;

  /// What the next `sleep` is to wait for has come already: it returns at once.
  void skipNextSleep() { isNextSleepSkipped_ = true; }

private:
  void fire(TimerId timer);

  double realTimeAtBoot_; ///< seconds since 2001
  std::map<TimerId, std::unique_ptr<QTimer>> timers_;
  TimerId lastId_ = 0;
  bool isNextSleepSkipped_ = false;
};

} // namespace tavrel
