#pragma once

#include "platform/Clock.h"

#include <map>
#include <memory>

class QTimer;

namespace tavrel {

/// The real time, stepped forward by a clock that nobody sets back and that goes on while the
/// machine sleeps. Timers fire from Qt's event loop.
class LinuxClock final : public Clock {
public:
  LinuxClock();
  ~LinuxClock() override;

  double now() override;
  void sleep(double seconds) override;
  TimerId schedule(double seconds, std::function<void()> action) override;
  void cancel(TimerId timer) override;

private:
  void fire(TimerId timer);

  double start_; ///< the real time less the other, in seconds
  std::map<TimerId, std::unique_ptr<QTimer>> timers_;
  TimerId last_ = 0;
};

} // namespace tavrel
