#pragma once

#include "base/PropertyList.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace tavrel {

/// A number as a signed 32-bit integer: fractions are cut, integers wrap, reals out of range come
/// to the nearest end and NaN to 0. Nothing for a value that is not a number; a boolean is not
/// one.
[[nodiscard]] std::optional<std::int32_t> int32Value(const PropertyList& value);

/// The same without a sign: negative integers wrap, negative reals come to 0.
[[nodiscard]] std::optional<std::uint32_t> uint32Value(const PropertyList& value);

/// A double as the nearest float; what is beyond the largest comes to an infinity.
[[nodiscard]] float floatFromDouble(double number);

/// A number as a double; nothing for a value that is not a number.
[[nodiscard]] std::optional<double> doubleValue(const PropertyList& value);

/// The decimal number that a text begins with, after white space; 0 when there is none. A full stop
/// divides, whatever the user's language.
[[nodiscard]] double leadingNumber(std::string_view text);

} // namespace tavrel
