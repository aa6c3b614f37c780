#include "base/PortableDecimal.h"

#include "base/Ascii.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <iterator>

namespace tavrel::portable {

namespace {

constexpr int mostDigits = 17; ///< that many tell any two doubles apart

/// A number as 0.DIGITS times ten to the power of `point`.
struct Decimal {
  std::string digits;
  int point = 0;
};

/// What stands between whole and fraction in the locale of the moment, which the C library reads
/// and writes in.
std::string separatorNow() {
  std::array<char, 16> half{};
  std::snprintf(half.data(), half.size(), "%.1f", 0.5);
  const std::string_view all(half.data());
  return std::string(all.substr(1, all.size() - 2));
}

double readNumber(std::string text) {
  if (const std::size_t stop = text.find('.'); stop != std::string::npos)
    text.replace(stop, 1, separatorNow());
  return std::strtod(text.c_str(), nullptr);
}

// Whatever the separator is: only the digits are taken.
Decimal withDigits(double size, int count) {
  std::array<char, 64> text{};
  std::snprintf(text.data(), text.size(), "%.*e", count - 1, size);
  const std::string_view all(text.data());
  const std::size_t e = all.find('e');
  Decimal decimal;
  std::copy_if(all.begin(), all.begin() + static_cast<std::ptrdiff_t>(e),
               std::back_inserter(decimal.digits), isDigit);
  decimal.point = std::atoi(text.data() + e + 1) + 1;
  return decimal;
}

std::string inPowers(const Decimal& decimal) {
  std::string text = decimal.digits.substr(0, 1);
  if (decimal.digits.size() > 1)
    text.append(".").append(decimal.digits, 1);
  const int power = decimal.point - 1;
  const std::string digits = std::to_string(std::abs(power));
  text.append(power < 0 ? "e-" : "e+").append(digits.size() < 2 ? "0" : "");
  return text.append(digits);
}

Decimal shortestDecimal(double size) {
  if (size == 0)
    return {"0", 1};
  for (int count = 1; count < mostDigits; ++count)
    if (Decimal decimal = withDigits(size, count); readNumber(inPowers(decimal)) == size)
      return decimal;
  return withDigits(size, mostDigits);
}

// A whole number is written out to its last digit, as the C++ library does.
std::string inDigits(const Decimal& decimal, double size) {
  const auto count = static_cast<int>(decimal.digits.size());
  if (decimal.point >= count) {
    std::array<char, 400> text{};
    std::snprintf(text.data(), text.size(), "%.0f", size);
    return text.data();
  }
  if (decimal.point <= 0)
    return std::string("0.")
        .append(static_cast<std::size_t>(-decimal.point), '0')
        .append(decimal.digits);
  const auto whole = static_cast<std::size_t>(decimal.point);
  return decimal.digits.substr(0, whole).append(".").append(decimal.digits, whole);
}

std::string sizeText(double size, DecimalForm form) {
  const Decimal decimal = shortestDecimal(size);
  if (form == DecimalForm::powers)
    return inPowers(decimal);
  std::string plain = inDigits(decimal, size);
  if (form == DecimalForm::plain)
    return plain;
  std::string powers = inPowers(decimal);
  return plain.size() <= powers.size() ? plain : powers;
}

std::size_t afterDigits(std::string_view text, std::size_t at) {
  return std::min(text.find_first_not_of("0123456789", at), text.size());
}

bool isPowerOfTen(std::string_view text) {
  const std::size_t sign = text.size() > 1 && (text[1] == '+' || text[1] == '-') ? 1 : 0;
  return (text[0] == 'e' || text[0] == 'E') && text.size() > 1 + sign &&
         afterDigits(text, 1 + sign) == text.size();
}

/// Whether the text is a decimal; and how much of it comes before the power of ten.
std::optional<std::size_t> mantissaOf(std::string_view text) {
  const std::size_t first = text.starts_with('-') ? 1 : 0;
  std::size_t end = afterDigits(text, first);
  std::size_t digits = end - first;
  if (end < text.size() && text[end] == '.') {
    const std::size_t fraction = end + 1;
    end = afterDigits(text, fraction);
    digits += end - fraction;
  }
  if (digits == 0 || (end < text.size() && !isPowerOfTen(text.substr(end))))
    return std::nullopt;
  return end;
}

} // namespace

std::string decimalText(double number, DecimalForm form) {
  if (std::isnan(number))
    return "nan";
  std::string text = std::signbit(number) ? "-" : "";
  return text.append(std::isinf(number) ? std::string("inf") : sizeText(std::fabs(number), form));
}

std::optional<double> decimalNumber(std::string_view text) {
  const auto mantissa = mantissaOf(text);
  if (!mantissa)
    return std::nullopt;
  const double number = readNumber(std::string(text));
  const bool isNought =
      text.substr(0, *mantissa).find_first_of("123456789") == std::string_view::npos;
  if (!std::isfinite(number) || (number == 0 && !isNought))
    return std::nullopt;
  return number;
}

} // namespace tavrel::portable
