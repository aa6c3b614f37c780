#pragma once

#include "platform/Menu.h"

#include <vector>

class QFontMetrics;

namespace tavrel {

/// What the height of a row goes by.
enum class RowKind { line, plain, marked };
[[nodiscard]] RowKind rowKind(const MenuItem& item);

/// Those of many entries that decide how wide and how high the rows are: the ones that seem widest,
/// title and key equivalent apart, and one of each kind. Only these need to be measured exactly.
[[nodiscard]] std::vector<const MenuItem*> decisiveItems(const std::vector<const MenuItem*>& items,
                                                         const QFontMetrics& metrics);

} // namespace tavrel
