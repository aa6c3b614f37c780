#include "platform/memory/MemoryClock.h"

#include <algorithm>

namespace tavrel {

namespace {
// In this order the comparison turns NaN into 0, too.
double span(double seconds) {
  return std::max(0.0, seconds);
}
} // namespace

void MemoryClock::advance(double seconds) {
  const double until = control.now + seconds;
  for (auto timer = nextDue(until); timer != timers_.end(); timer = nextDue(until)) {
    control.now = std::max(control.now, timer->second.due);
    const auto action = std::move(timer->second.action);
    timers_.erase(timer);
    action();
  }
  control.now = std::max(control.now, until);
}

MemoryClock::Timers::iterator MemoryClock::nextDue(double until) {
  const auto earliest =
      std::min_element(timers_.begin(), timers_.end(),
                       [](const auto& a, const auto& b) { return a.second.due < b.second.due; });
  return earliest != timers_.end() && earliest->second.due <= until ? earliest : timers_.end();
}

void MemoryClock::sleep(double seconds) {
  control.sleeps.push_back(seconds);
  control.now += span(seconds);
  if (control.onSleep)
    control.onSleep(control.now);
}

TimerId MemoryClock::schedule(double seconds, std::function<void()> action) {
  timers_.emplace(++last_, Timer{control.now + span(seconds), std::move(action)});
  return last_;
}

} // namespace tavrel
