#include "base/Decimal.h"

#include "base/PortableDecimal.h"

#include <array>
#include <charconv>
#include <cmath>

namespace tavrel {

#ifdef __cpp_lib_to_chars

namespace {
constexpr std::size_t longestDecimal = 400; ///< the largest number takes 309 digits
}

std::string decimalText(double number, DecimalForm form) {
  if (std::isnan(number))
    return "nan";
  std::array<char, longestDecimal> text{};
  char* const first = text.data();
  char* const last = first + text.size();
  const auto written = form == DecimalForm::shorter ? std::to_chars(first, last, number)
                       : form == DecimalForm::plain
                           ? std::to_chars(first, last, number, std::chars_format::fixed)
                           : std::to_chars(first, last, number, std::chars_format::scientific);
  return {first, written.ptr};
}

std::optional<double> decimalNumber(std::string_view text) {
  double number = 0;
  const char* const first = text.data();
  const char* const last = first + text.size();
  const auto read = std::from_chars(first, last, number);
  if (read.ec != std::errc() || read.ptr != last || !std::isfinite(number))
    return std::nullopt;
  return number;
}

#else

std::string decimalText(double number, DecimalForm form) {
  return portable::decimalText(number, form);
}

std::optional<double> decimalNumber(std::string_view text) {
  return portable::decimalNumber(text);
}

#endif

} // namespace tavrel
