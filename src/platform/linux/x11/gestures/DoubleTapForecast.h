#pragma once

#include "platform/linux/x11/gestures/ModifierTaps.h"

namespace tavrel {

/// Foresees a double tap when a modifier goes down for the second time, so that what is typed from
/// then on can be kept for the menu. Whether it is one, the core decides when the key goes up.
class DoubleTapForecast {
public:
  /// A handler has polled the keyboard because of this press, as the core does for the keys that
  /// may open the menu.
  void noteQuery(const ModifierChange& press) { lastQueried_ = press; }
  /// Whether the press follows one of the same key that was polled for, soon enough for a double
  /// tap and without another key or button between.
  [[nodiscard]] bool isSecondPress(const ModifierChange& press) const;

private:
  ModifierChange lastQueried_;
};

} // namespace tavrel
