#include "platform/linux/x11/gestures/TapInSight.h"

namespace tavrel {

namespace {
constexpr std::uint32_t longestFromPressToPress = 300; // with what it takes to look at the clock
}

void TapInSight::lookedAt(const std::shared_ptr<const ModifierPress>& press) {
  last_ = press;
}

bool TapInSight::isSecond(const std::shared_ptr<const ModifierPress>& press) const {
  return press && last_ && press != last_ && press->key == last_->key && !last_->interrupted &&
         press->time - last_->time < longestFromPressToPress;
}

} // namespace tavrel
