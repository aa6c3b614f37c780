#include "platform/linux/menus/RowSteps.h"

namespace tavrel {

namespace {
using Row = std::optional<std::size_t>;
using RowPredicate = std::function<bool(std::size_t)>;

Row firstFrom(std::size_t row, std::size_t rowCount, const RowPredicate& canHaveHighlight) {
  for (; row < rowCount; ++row)
    if (canHaveHighlight(row))
      return row;
  return std::nullopt;
}

Row lastUpTo(std::size_t end, const RowPredicate& canHaveHighlight) {
  while (end > 0)
    if (canHaveHighlight(--end))
      return end;
  return std::nullopt;
}

Row either(Row row, Row otherwise) {
  return row ? row : otherwise;
}
} // namespace

std::optional<std::size_t> rowAfter(RowStep step, Row current, std::size_t rowCount,
                                    const RowWindow& window, const RowPredicate& canHaveHighlight) {
  const Row first = firstFrom(0, rowCount, canHaveHighlight);
  const Row last = lastUpTo(rowCount, canHaveHighlight);
  if (!first)
    return std::nullopt;
  const std::size_t here = current.value_or(0);
  switch (step) {
  case RowStep::up:
    return current ? either(lastUpTo(here, canHaveHighlight), last) : last;
  case RowStep::down:
    return current ? either(firstFrom(here + 1, rowCount, canHaveHighlight), first) : first;
  case RowStep::first:
    return first;
  case RowStep::last:
    return last;
  case RowStep::pageUp:
    return either(lastUpTo(window.pageAway(here, ScrollDirection::up) + 1, canHaveHighlight),
                  first);
  case RowStep::pageDown:
    return either(
        firstFrom(window.pageAway(here, ScrollDirection::down), rowCount, canHaveHighlight), last);
  }
  return std::nullopt;
}

} // namespace tavrel
