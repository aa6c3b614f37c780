#pragma once

#include "platform/linux/x11/gestures/ModifierTaps.h"

#include <memory>

namespace tavrel {

/// Foresees a double tap as its second press comes: whether it is one, others decide as the key
/// goes up.
class DoubleTapForecast {
public:
  /// Somebody looks whether the press is part of a tap: its key opens the menu, or may do.
  void lookedAt(const std::shared_ptr<const ModifierPress>& press);
  /// Whether the press follows a tap of the same key that somebody looked at, in time.
  [[nodiscard]] bool isSecond(const std::shared_ptr<const ModifierPress>& press) const;

private:
  std::shared_ptr<const ModifierPress> last_;
};

} // namespace tavrel
