#pragma once

#include "platform/Menu.h"

#include <vector>

class QFontMetrics;

namespace tavrel {

/// The kinds of rows that differ in height: separators, entries without and with an image or tick.
enum class RowKind { line, plain, marked };
[[nodiscard]] RowKind rowKind(const MenuItem& item);

/// The entries to measure instead of all: those with the widest titles and the widest key
/// equivalents by an estimate, and one of each kind. They decide how wide the level and how high
/// its rows are.
[[nodiscard]] std::vector<const MenuItem*> decisiveItems(const std::vector<const MenuItem*>& items,
                                                         const QFontMetrics& metrics);

} // namespace tavrel
