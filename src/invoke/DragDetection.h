#pragma once

#include "platform/Event.h"

#include <optional>

namespace tavrel {

/// Which way a view's vertical axis runs.
enum class Flippedness { upwards, downwards };

/// Whether a left mouse-down becomes a drag: the pointer leaves the square of `dragSlop` points
/// around it before the button comes up. Without a date (`timeOut`, seconds since 2001-01-01 GMT)
/// it waits as long as the button is down.
[[nodiscard]] bool isDragEvent(const Event& event, Flippedness forView, float dragSlop,
                               std::optional<double> timeOut);

} // namespace tavrel
