#pragma once

#include "platform/Clock.h"

#include <chrono>
#include <map>
#include <memory>

class QTimer;

namespace tavrel {

/// The real time, stepped forward by the steady clock so that it never runs backwards. Timers fire
/// from Qt's event loop.
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

  std::chrono::steady_clock::time_point start_;
  double startSeconds_;
  std::map<TimerId, std::unique_ptr<QTimer>> timers_;
  TimerId last_ = 0;
};

} // namespace tavrel
