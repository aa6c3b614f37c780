#pragma once

#include "platform/EventMonitor.h"
#include "platform/macos/CarbonHandler.h"

namespace tavrel {

/// The monitor target of the system: it reports nothing while this application is active, nor while
/// a password field has the keyboard.
class MacEventMonitor final : public EventMonitor {
public:
  OSStatus installModifierHandler(std::function<void()> changed) override;
  OSStatus installButtonHandler(std::function<void(ButtonChange)> changed) override;

private:
  void tellModifiers();
  void tellButton(EventRef event) const;

  std::vector<std::function<void()>> modifiersChanged_;
  std::function<void(ButtonChange)> buttonsChanged_;
  bool isTelling_ = false;
  bool isBehind_ = false;
  CarbonHandler modifiers_{[this](EventRef) { tellModifiers(); }};
  CarbonHandler buttons_{[this](EventRef event) { tellButton(event); }};
};

} // namespace tavrel
