#include "base/Decimal.h"
#include "base/PortableDecimal.h"

#include <gtest/gtest.h>

#include <bit>
#include <clocale>
#include <cmath>
#include <limits>
#include <random>

namespace tavrel {
namespace {

using Limits = std::numeric_limits<double>;

constexpr double samples[]{0.0,
                           -0.0,
                           1.0,
                           -1.0,
                           0.1,
                           0.25,
                           100.0,
                           1e5,
                           1e22,
                           1e23,
                           1e-5,
                           123.456,
                           -0.00123,
                           9999.5,
                           1e300,
                           5e-324,
                           1e-310,
                           0.3,
                           1.0 / 3,
                           2.0 / 3,
                           1e15,
                           1e16,
                           1e17,
                           12345678.9,
                           Limits::max(),
                           Limits::min(),
                           Limits::infinity(),
                           -Limits::infinity()};
constexpr DecimalForm forms[]{DecimalForm::shorter, DecimalForm::plain, DecimalForm::powers};

constexpr const char* texts[]{
    "0",    "-0",    "1",    "1.5",    "-1.5",   ".5",  "5.",    "-.5",    "1e3",    "1E3",
    "1e+3", "1e-3",  "1e",   "1e+",    "e3",     "",    "-",     ".",      "-.",     "+1",
    " 1",   "1 ",    "1,5",  "inf",    "-inf",   "nan", "1e400", "-1e400", "1e-400", "0e999",
    "0x10", "1.2.3", "1e5x", "1e-310", "5e-324", "--1", "00012", "1e0005"};

/// Sets a locale for as long as it lives.
class ScopedLocale {
public:
  explicit ScopedLocale(const char* name)
      : before_(std::setlocale(LC_ALL, nullptr)), isSet_(std::setlocale(LC_ALL, name) != nullptr) {}
  ~ScopedLocale() { std::setlocale(LC_ALL, before_.c_str()); }
  ScopedLocale(const ScopedLocale&) = delete;
  ScopedLocale& operator=(const ScopedLocale&) = delete;
  [[nodiscard]] bool isSet() const { return isSet_; }

private:
  std::string before_;
  bool isSet_;
};

TEST(Decimal, WritesTheShortestText) {
  EXPECT_EQ(decimalText(0.1, DecimalForm::shorter), "0.1");
  EXPECT_EQ(decimalText(100, DecimalForm::shorter), "100");
  EXPECT_EQ(decimalText(1e5, DecimalForm::shorter), "1e+05");
  EXPECT_EQ(decimalText(-2.5, DecimalForm::powers), "-2.5e+00");
  EXPECT_EQ(decimalText(1e-7, DecimalForm::plain), "0.0000001");
  EXPECT_EQ(decimalText(Limits::max(), DecimalForm::plain).size(), 309U);
}

TEST(Decimal, ReadsAWholeTextOrNothing) {
  EXPECT_EQ(decimalNumber("-1.5e2"), -150.0);
  EXPECT_EQ(decimalNumber("1.5 "), std::nullopt);
  EXPECT_EQ(decimalNumber("1e400"), std::nullopt);
  EXPECT_EQ(decimalNumber("-inf"), std::nullopt);
}

TEST(Decimal, WritesTheSameByMeansOfTheCLibrary) {
  for (const DecimalForm form : forms)
    for (const double sample : samples)
      EXPECT_EQ(portable::decimalText(sample, form), decimalText(sample, form));
  EXPECT_EQ(portable::decimalText(Limits::quiet_NaN(), DecimalForm::shorter), "nan");
}

TEST(Decimal, ReadsTheSameByMeansOfTheCLibrary) {
  for (const char* text : texts)
    EXPECT_EQ(portable::decimalNumber(text), decimalNumber(text)) << text;
}

TEST(Decimal, ReadsBackWhatItWrites) {
  std::mt19937_64 bits(7);
  for (int i = 0; i < 5000; ++i) {
    const auto number = std::bit_cast<double>(bits());
    if (!std::isfinite(number))
      continue;
    const std::string text = portable::decimalText(number, DecimalForm::shorter);
    EXPECT_EQ(text, decimalText(number, DecimalForm::shorter));
    EXPECT_EQ(portable::decimalNumber(text), number);
  }
}

TEST(Decimal, DividesByAFullStopInEveryLanguage) {
  const ScopedLocale german("de_DE.UTF-8");
  if (!german.isSet())
    GTEST_SKIP() << "this machine has no German locale";
  EXPECT_EQ(portable::decimalText(1.5, DecimalForm::shorter), "1.5");
  EXPECT_EQ(portable::decimalNumber("1.5"), 1.5);
}

} // namespace
} // namespace tavrel
