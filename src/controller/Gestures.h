#pragma once

#include "platform/Accessibility.h"
#include "platform/NotificationCenter.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tavrel {

class LongPress;
class NTModifierKeyActionHandler;

/// What a double tap is announced as, inside this process, and the detector's client.
inline constexpr const char* doubleTapName = "TVR_TheKeyDoubleTapped";

/// What calls the pop-up at the pointer up.
struct Gestures {
  std::unique_ptr<NTModifierKeyActionHandler> doubleTapActionHandler;
  std::optional<ObserverId> doubleTapObserver;
  std::unique_ptr<LongPress> longPress;       ///< null unless a long press is the way in
  std::vector<std::string> excludeUIElements; ///< roles that are no target; filled at launch
  AXUIElementRef systemWideElement;           ///< made when first used
  bool beepStopped = false;                   ///< while a long press may come of a press
};

} // namespace tavrel
