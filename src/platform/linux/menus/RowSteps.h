#pragma once

#include "platform/linux/menus/RowWindow.h"

#include <functional>
#include <optional>

namespace tavrel {

/// How a key moves the highlight of a long level.
enum class RowStep { up, down, first, last, pageUp, pageDown };

/// The row that gets the highlight. Single steps wrap around at the ends, pages stop there.
/// `canHaveHighlight` answers for a row; nothing when no row can.
[[nodiscard]] std::optional<std::size_t>
rowAfter(RowStep step, std::optional<std::size_t> current, std::size_t rowCount,
         const RowWindow& window, const std::function<bool(std::size_t)>& canHaveHighlight);

} // namespace tavrel
