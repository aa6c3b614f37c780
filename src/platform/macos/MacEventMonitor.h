#pragma once

#include "platform/EventMonitor.h"
#include "platform/macos/CarbonHandler.h"

#include <optional>
#include <vector>

namespace tavrel {

/// The monitor target of the system: it reports nothing while this application is active, nor while
/// a password field has the keyboard.
class MacEventMonitor final : public EventMonitor {
public:
  OSStatus installModifierHandler(std::function<void(double)> changed) override;
  OSStatus installButtonHandler(std::function<void(ButtonChange)> changed) override;

private:
  void tellModifiers(EventRef event);
  void tellButton(EventRef event) const;

  std::vector<std::function<void(double)>> modifiersChanged_;
  std::function<void(ButtonChange)> buttonsChanged_;
  bool isTelling_ = false;
  std::optional<double> untold_; ///< the time of the last change that no handler knows of
  CarbonHandler modifiers_{[this](EventRef event) { tellModifiers(event); }};
  CarbonHandler buttons_{[this](EventRef event) { tellButton(event); }};
};

} // namespace tavrel
