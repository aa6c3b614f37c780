#include "platform/linux/x11/gestures/DoubleTapForecast.h"

#include "platform/EventMonitor.h"

namespace tavrel {

namespace {
// Milliseconds. The server stamps a press as it comes; the core reads its own clock later.
constexpr std::uint32_t clockDelay = 50;
constexpr auto longestFromPressToPress =
    static_cast<std::uint32_t>(doubleTapInterval * 1000) + clockDelay;
} // namespace

void DoubleTapForecast::noteQuery(const std::shared_ptr<const ModifierPress>& press) {
  lastQueried_ = press;
}

bool DoubleTapForecast::isSecondPress(const std::shared_ptr<const ModifierPress>& press) const {
  return press && lastQueried_ && press != lastQueried_ && press->key == lastQueried_->key &&
         !lastQueried_->interrupted && press->time - lastQueried_->time < longestFromPressToPress;
}

} // namespace tavrel
