#include "base/Numbers.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace tavrel {

namespace {
std::int32_t int32FromReal(double real) {
  using Limits = std::numeric_limits<std::int32_t>;
  if (std::isnan(real))
    return 0;
  return static_cast<std::int32_t>(
      std::clamp(real, static_cast<double>(Limits::min()), static_cast<double>(Limits::max())));
}
} // namespace

std::optional<std::int32_t> int32Value(const PropertyList& value) {
  if (const auto integer = value.integer())
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(*integer));
  if (const auto real = value.real())
    return int32FromReal(*real);
  return std::nullopt;
}

std::optional<double> doubleValue(const PropertyList& value) {
  if (const auto integer = value.integer())
    return static_cast<double>(*integer);
  return value.real();
}

} // namespace tavrel
