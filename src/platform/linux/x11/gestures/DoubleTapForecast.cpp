#include "platform/linux/x11/gestures/DoubleTapForecast.h"

#include "platform/EventMonitor.h"

namespace tavrel {

namespace {
constexpr auto longestFromPressToPress = static_cast<std::uint32_t>(doubleTapInterval * 1000);
} // namespace

bool DoubleTapForecast::isSecondPress(const ModifierChange& press) const {
  return press.pressed != 0 && press.pressed == lastQueried_.pressed &&
         press.sequel != lastQueried_.sequel &&
         lastQueried_.sequel->kind != SequelKind::interrupted &&
         press.time - lastQueried_.time < longestFromPressToPress;
}

} // namespace tavrel
