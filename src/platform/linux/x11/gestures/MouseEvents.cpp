#include "platform/linux/x11/gestures/MouseEvents.h"

#include "base/Modifiers.h"

#include <QMouseEvent>
#include <QWindow>

#include <array>
#include <utility>

namespace tavrel {

namespace {

std::optional<EventType> typeOf(const QMouseEvent& event) {
  const bool left = event.button() == Qt::LeftButton;
  switch (event.type()) {
  case QEvent::MouseButtonPress:
    if (left)
      return EventType::leftMouseDown;
    return event.button() == Qt::RightButton ? std::optional(EventType::rightMouseDown)
                                             : std::nullopt;
  case QEvent::MouseButtonRelease:
    return left ? std::optional(EventType::leftMouseUp) : std::nullopt;
  case QEvent::MouseMove:
    return event.buttons().testFlag(Qt::LeftButton) ? std::optional(EventType::leftMouseDragged)
                                                    : std::nullopt;
  default:
    return std::nullopt;
  }
}

// The toolkit calls the Super key Meta.
std::uint32_t interfaceModifiers(Qt::KeyboardModifiers held) {
  constexpr std::array<std::pair<Qt::KeyboardModifier, std::uint32_t>, 4> modifiers{
      {{Qt::ControlModifier, modifier::command},
       {Qt::ShiftModifier, modifier::shift},
       {Qt::AltModifier, modifier::option},
       {Qt::MetaModifier, modifier::control}}};
  std::uint32_t flags = 0;
  for (const auto& [toolkit, flag] : modifiers)
    if (held.testFlag(toolkit))
      flags |= flag;
  return flags;
}

} // namespace

std::optional<Event> mouseEvent(const QMouseEvent& event, const QWindow& window) {
  const auto type = typeOf(event);
  if (!type)
    return std::nullopt;
  Event converted;
  converted.type = *type;
  converted.location = {event.position().x(), window.height() - event.position().y()};
  converted.modifierFlags = interfaceModifiers(event.modifiers());
  converted.windowNumber = static_cast<std::int32_t>(window.winId());
  converted.clickCount = *type == EventType::leftMouseDragged ? 0 : 1;
  return converted;
}

} // namespace tavrel
