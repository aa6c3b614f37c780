#include "platform/linux/system/LinuxClock.h"

#include <QTimer>

#include <algorithm>
#include <chrono>
#include <ctime>
#include <thread>

namespace tavrel {

namespace {
// From 1970-01-01 to 2001-01-01, both GMT.
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

// A timer of Qt counts milliseconds in 32 bits; nothing here waits that long.
constexpr double longest = 24 * 86400.0;

// In this order the comparisons make none of what is no number, too.
Seconds span(double seconds) {
  return Seconds(std::min(longest, std::max(0.0, seconds)));
}
} // namespace

LinuxClock::LinuxClock() : start_(realSeconds() - secondsSinceBoot()) {}

LinuxClock::~LinuxClock() = default;

double LinuxClock::now() {
  return start_ + secondsSinceBoot();
}

void LinuxClock::sleep(double seconds) {
  std::this_thread::sleep_for(span(seconds));
}

TimerId LinuxClock::schedule(double seconds, std::function<void()> action) {
  const TimerId id = ++last_;
  auto timer = std::make_unique<QTimer>();
  timer->setSingleShot(true);
  timer->setTimerType(Qt::PreciseTimer);
  QObject::connect(timer.get(), &QTimer::timeout, [this, id, call = std::move(action)] {
    const auto kept = call; // the timer, and this very function, goes first
    fire(id);
    kept();
  });
  timer->start(std::chrono::ceil<std::chrono::milliseconds>(span(seconds)));
  timers_.emplace(id, std::move(timer));
  return id;
}

void LinuxClock::cancel(TimerId timer) {
  timers_.erase(timer);
}

// A timer that fires is on the stack: it may only be deleted later.
void LinuxClock::fire(TimerId timer) {
  const auto found = timers_.find(timer);
  if (found == timers_.end())
    return;
  found->second.release()->deleteLater();
  timers_.erase(found);
}

} // namespace tavrel
