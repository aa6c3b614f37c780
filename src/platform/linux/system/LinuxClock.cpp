#include "platform/linux/system/LinuxClock.h"

#include <QTimer>

#include <algorithm>
#include <chrono>
#include <ctime>
#include <thread>
#include <utility>

namespace tavrel {

namespace {
// Seconds from 1970-01-01 to 2001-01-01, both GMT.
constexpr double referenceDate = 978307200.0;

using Seconds = std::chrono::duration<double>;

double realSeconds() {
  return Seconds(std::chrono::system_clock::now().time_since_epoch()).count() - referenceDate;
}

double secondsSinceBoot() {
  timespec time{};
  ::clock_gettime(CLOCK_BOOTTIME, &time);
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

// QTimer counts milliseconds in 32 bits: 24 days.
constexpr double longestSeconds = 24 * 86400.0;

// NaN counts as 0: std::max gives its first argument when the comparison is false.
Seconds timerDuration(double seconds) {
  return Seconds(std::min(longestSeconds, std::max(0.0, seconds)));
}
} // namespace

LinuxClock::LinuxClock() : realTimeAtBoot_(realSeconds() - secondsSinceBoot()) {}

LinuxClock::~LinuxClock() = default;

double LinuxClock::now() {
  return realTimeAtBoot_ + secondsSinceBoot();
}

void LinuxClock::sleep(double seconds) {
  if (std::exchange(isNextSleepSkipped_, false))
    return;
  std::this_thread::sleep_for(timerDuration(seconds));
}

TimerId LinuxClock::schedule(double seconds, std::function<void()> action) {
  const TimerId id = ++lastId_;
  auto timer = std::make_unique<QTimer>();
  timer->setSingleShot(true);
  timer->setTimerType(Qt::PreciseTimer);
  QObject::connect(timer.get(), &QTimer::timeout, [this, id, action = std::move(action)] {
    const auto copy = action; // for fire() deletes the timer, and this lambda with it
    fire(id);
    copy();
  });
  timer->start(std::chrono::ceil<std::chrono::milliseconds>(timerDuration(seconds)));
  timers_.emplace(id, std::move(timer));
  return id;
}

void LinuxClock::cancel(TimerId timer) {
  timers_.erase(timer);
}

// The timer is emitting its signal, so it may not be deleted before control is back in the event
// loop.
void LinuxClock::fire(TimerId timer) {
  const auto found = timers_.find(timer);
  if (found == timers_.end())
    return;
  found->second.release()->deleteLater();
  timers_.erase(found);
}

} // namespace tavrel
