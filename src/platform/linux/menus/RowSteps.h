#pragma once

#include "platform/linux/menus/RowWindow.h"

#include <functional>
#include <optional>

namespace tavrel {

/// What a key asks of the highlight of a long level.
enum class RowStep { up, down, first, last, pageUp, pageDown };

/// The row that gets the highlight: past either end it goes on at the other one, but for pages.
/// `takes` tells the rows that can have it; nothing when there is none.
[[nodiscard]] std::optional<std::size_t> rowAfter(RowStep step, std::optional<std::size_t> current,
                                                  std::size_t rowCount, const RowWindow& window,
                                                  const std::function<bool(std::size_t)>& takes);

} // namespace tavrel
