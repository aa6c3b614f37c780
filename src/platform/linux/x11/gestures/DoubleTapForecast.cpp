#include "platform/linux/x11/gestures/DoubleTapForecast.h"

namespace tavrel {

namespace {
constexpr std::uint32_t longestFromPressToPress = 300; // with what it takes to look at the clock
}

void DoubleTapForecast::lookedAt(const std::shared_ptr<const ModifierPress>& press) {
  last_ = press;
}

bool DoubleTapForecast::isSecond(const std::shared_ptr<const ModifierPress>& press) const {
  return press && last_ && press != last_ && press->key == last_->key && !last_->interrupted &&
         press->time - last_->time < longestFromPressToPress;
}

} // namespace tavrel
