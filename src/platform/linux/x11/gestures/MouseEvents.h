#pragma once

#include "platform/Event.h"

#include <optional>

class QMouseEvent;
class QWindow;

namespace tavrel {

/// Nothing for a mouse event of a kind that the ports do not know. The caller adds the time.
[[nodiscard]] std::optional<Event> mouseEvent(const QMouseEvent& event, const QWindow& window);

} // namespace tavrel
