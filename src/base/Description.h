#pragma once

#include "base/PropertyList.h"

#include <string>

namespace tavrel {

/// A value as text for a log. A string stands for itself; inside an array "( )" or a
/// dictionary "{ }", over several lines, one that is not made of plain letters and digits is
/// quoted. Data are hexadecimal digits in "< >", dates seconds since 2001.
[[nodiscard]] std::string descriptionOf(const PropertyList& value);

} // namespace tavrel
