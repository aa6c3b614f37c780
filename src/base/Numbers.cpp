#include "base/Numbers.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <locale>
#include <sstream>
#include <string>

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
std::size_t digitsEnd(std::string_view text, std::size_t from) {
  return std::min(text.find_first_not_of("0123456789", from), text.size());
}

bool isSign(std::string_view text, std::size_t at) {
  return at < text.size() && (text[at] == '+' || text[at] == '-');
}

std::size_t mantissaEnd(std::string_view text) {
  const std::size_t whole = digitsEnd(text, isSign(text, 0) ? 1 : 0);
  return whole < text.size() && text[whole] == '.' ? digitsEnd(text, whole + 1) : whole;
}

std::size_t exponentEnd(std::string_view text, std::size_t from) {
  if (from >= text.size() || (text[from] != 'e' && text[from] != 'E'))
    return from;
  const std::size_t first = isSign(text, from + 1) ? from + 2 : from + 1;
  const std::size_t last = digitsEnd(text, std::min(first, text.size()));
  return last > first ? last : from;
}

std::string_view numberPrefix(std::string_view text) {
  return text.substr(0, exponentEnd(text, mantissaEnd(text)));
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

double leadingNumber(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(" \t\n\r\f\v"), text.size()));
  std::istringstream stream{std::string(numberPrefix(text))};
  stream.imbue(std::locale::classic());
  double number = 0; // what is too large comes to the largest
  stream >> number;
  return number;
}

std::optional<double> doubleValue(const PropertyList& value) {
  if (const auto integer = value.integer())
    return static_cast<double>(*integer);
  return value.real();
}

} // namespace tavrel
