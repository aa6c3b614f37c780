#include "platform/macos/MacEventMonitor.h"

#include <optional>
#include <utility>

namespace tavrel {

namespace {

EventMouseButton buttonOf(EventRef event) {
  EventMouseButton button = 0;
  GetEventParameter(event, kEventParamMouseButton, typeMouseButton, nullptr, sizeof button, nullptr,
                    &button);
  return button;
}

std::optional<ButtonChange> buttonChange(EventRef event) {
  const UInt32 kind = GetEventKind(event);
  if (kind == kEventMouseWheelMoved)
    return ButtonChange::otherPressed;
  const bool isPrimary = buttonOf(event) == kEventMouseButtonPrimary;
  if (kind == kEventMouseDown)
    return isPrimary ? ButtonChange::primaryPressed : ButtonChange::otherPressed;
  if (kind == kEventMouseUp && isPrimary)
    return ButtonChange::primaryReleased;
  if (kind == kEventMouseDragged && (GetCurrentButtonState() & 1U) != 0)
    return ButtonChange::moved;
  return std::nullopt;
}

} // namespace

OSStatus MacEventMonitor::installModifierHandler(std::function<void(double)> changed) {
  if (!modifiersChanged_.empty()) {
    modifiersChanged_.push_back(std::move(changed));
    return noErr;
  }
  const ::OSStatus status = modifiers_.install(
      GetEventMonitorTarget(), {{kEventClassKeyboard, kEventRawKeyModifiersChanged}});
  if (status == noErr)
    modifiersChanged_.push_back(std::move(changed));
  return status;
}

OSStatus MacEventMonitor::installButtonHandler(std::function<void(ButtonChange)> changed) {
  buttonsChanged_ = std::move(changed);
  buttons_.remove();
  if (!buttonsChanged_)
    return noErr;
  return buttons_.install(GetEventMonitorTarget(), {{kEventClassMouse, kEventMouseDown},
                                                    {kEventClassMouse, kEventMouseUp},
                                                    {kEventClassMouse, kEventMouseDragged},
                                                    {kEventClassMouse, kEventMouseWheelMoved}});
}

// A handler may run the event loop: what changes meanwhile is reported once it has returned.
void MacEventMonitor::tellModifiers(EventRef event) {
  untold_ = GetEventTime(event);
  if (std::exchange(isTelling_, true))
    return;
  while (const auto time = std::exchange(untold_, std::nullopt))
    for (std::size_t i = 0; i < modifiersChanged_.size(); ++i) {
      const auto handler = modifiersChanged_[i];
      handler(*time);
    }
  isTelling_ = false;
}

void MacEventMonitor::tellButton(EventRef event) const {
  if (const auto change = buttonChange(event); change && buttonsChanged_)
    buttonsChanged_(*change);
}

} // namespace tavrel
