#include "platform/linux/x11/gestures/DoubleTapForecast.h"

namespace tavrel {

namespace {
constexpr std::uint32_t longestFromPressToPress = 300; // with what it takes to look at the clock
}

void DoubleTapForecast::noteQuery(const std::shared_ptr<const ModifierPress>& press) {
  lastQueried_ = press;
}

bool DoubleTapForecast::isSecondPress(const std::shared_ptr<const ModifierPress>& press) const {
  return press && lastQueried_ && press != lastQueried_ && press->key == lastQueried_->key &&
         !lastQueried_->interrupted && press->time - lastQueried_->time < longestFromPressToPress;
}

} // namespace tavrel
