#pragma once

#include "platform/EventMonitor.h"

#include <vector>

namespace tavrel {

/// Changes of modifiers and buttons that a test makes.
class MemoryEventMonitor final : public EventMonitor {
public:
  struct Control {
    OSStatus status = 0; ///< what installing answers
    std::vector<std::function<void(double)>> handlers;
    std::function<void(ButtonChange)> buttonHandler; ///< empty: nobody watches
  };
  Control control;

  OSStatus installModifierHandler(std::function<void(double)> changed) override {
    if (control.status == 0)
      control.handlers.push_back(std::move(changed));
    return control.status;
  }

  OSStatus installButtonHandler(std::function<void(ButtonChange)> changed) override {
    if (control.status == 0)
      control.buttonHandler = std::move(changed);
    return control.status;
  }

  /// Tells every handler that the modifiers have changed at that time.
  void modifiersChanged(double time) {
    for (const auto& handler : control.handlers)
      handler(time);
  }
};

} // namespace tavrel
