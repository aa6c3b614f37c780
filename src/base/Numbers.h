#pragma once

#include "base/PropertyList.h"

#include <cstdint>
#include <optional>

namespace tavrel {

/// A number as a signed 32-bit integer: fractions are cut, integers wrap, reals out of range come
/// to the nearest end and NaN to 0. Nothing for a value that is no number; a boolean is none.
[[nodiscard]] std::optional<std::int32_t> int32Value(const PropertyList& value);

/// A number as a double; nothing for a value that is no number.
[[nodiscard]] std::optional<double> doubleValue(const PropertyList& value);

} // namespace tavrel
