#pragma once

#include "platform/Clock.h"

#include <map>
#include <vector>

namespace tavrel {

/// A clock that a test turns by hand.
class MemoryClock final : public Clock {
public:
  struct Control {
    double now = 0;
    std::vector<double> sleeps;              ///< seconds of each sleep, oldest first
    std::function<void(double now)> onSleep; ///< what has changed when a sleep is over
  };
  Control control;

  /// Turns the clock forward and fires what falls due on the way, in order of time.
  void advance(double seconds);

  double now() override { return control.now; }
  void sleep(double seconds) override;
  TimerId schedule(double seconds, std::function<void()> action) override;
  void cancel(TimerId timer) override { timers_.erase(timer); }

private:
  struct Timer {
    double due = 0;
    std::function<void()> action;
  };
  using Timers = std::map<TimerId, Timer>;
  Timers::iterator nextDue(double until);

  Timers timers_;
  TimerId last_ = 0;
};

} // namespace tavrel
