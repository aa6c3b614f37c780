#include "base/Numbers.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace tavrel {

namespace {
template <class Integer> Integer fromReal(double real) {
  using Limits = std::numeric_limits<Integer>;
  if (std::isnan(real))
    return 0;
  return static_cast<Integer>(
      std::clamp(real, static_cast<double>(Limits::min()), static_cast<double>(Limits::max())));
}

template <class Integer> std::optional<Integer> numberAs(const PropertyList& value) {
  if (const auto integer = value.integer())
    return static_cast<Integer>(static_cast<std::uint32_t>(*integer));
  if (const auto real = value.real())
    return fromReal<Integer>(*real);
  return std::nullopt;
}
} // namespace

std::optional<std::int32_t> int32Value(const PropertyList& value) {
  return numberAs<std::int32_t>(value);
}

std::optional<std::uint32_t> uint32Value(const PropertyList& value) {
  return numberAs<std::uint32_t>(value);
}

float floatFromDouble(double number) {
  using Limits = std::numeric_limits<float>;
  if (std::abs(number) > static_cast<double>(Limits::max())) // a cast of it is undefined
    return number > 0 ? Limits::infinity() : -Limits::infinity();
  return static_cast<float>(number);
}

std::optional<double> doubleValue(const PropertyList& value) {
  if (const auto integer = value.integer())
    return static_cast<double>(*integer);
  return value.real();
}

} // namespace tavrel
