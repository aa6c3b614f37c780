#pragma once

#include "platform/Event.h"

#include <optional>

class QMouseEvent;
class QWindow;

namespace tavrel {

/// The event as the ports have it, but for the time, which the caller adds; nothing for a kind that
/// they do not know.
[[nodiscard]] std::optional<Event> mouseEvent(const QMouseEvent& event, const QWindow& window);

} // namespace tavrel
