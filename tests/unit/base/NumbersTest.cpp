#include "base/Numbers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace tavrel {
namespace {

TEST(Numbers, FractionsAreCut) {
  EXPECT_EQ(int32Value(2.9), 2);
  EXPECT_EQ(int32Value(-2.9), -2);
  EXPECT_EQ(int32Value(1.0), 1);
}

TEST(Numbers, IntegersWrapToThirtyTwoBits) {
  EXPECT_EQ(int32Value(5000000000), 705032704);
  EXPECT_EQ(int32Value(4294967296), 0);
  EXPECT_EQ(int32Value(2147483648), -2147483647 - 1);
}

TEST(Numbers, RealsOutOfRangeComeToTheNearestEnd) {
  EXPECT_EQ(int32Value(1e300), 2147483647);
  EXPECT_EQ(int32Value(-1e300), -2147483647 - 1);
  EXPECT_EQ(int32Value(std::nan("")), 0);
}

TEST(Numbers, WithoutASignTheUpperHalfIsKept) {
  EXPECT_EQ(uint32Value(4294967295), 4294967295U);
  EXPECT_EQ(uint32Value(-1), 4294967295U);
  EXPECT_EQ(uint32Value(3000000000.5), 3000000000U);
  EXPECT_EQ(uint32Value(1e300), 4294967295U);
  EXPECT_EQ(uint32Value(-2.5), 0U);
  EXPECT_EQ(uint32Value(std::nan("")), 0U);
  EXPECT_EQ(uint32Value(true), std::nullopt);
}

TEST(Numbers, ADoubleIsTheNearestFloatOrAnInfinity) {
  constexpr float infinity = std::numeric_limits<float>::infinity();
  constexpr float largest = std::numeric_limits<float>::max();
  EXPECT_EQ(floatFromDouble(0.8), 0.8F);
  EXPECT_EQ(floatFromDouble(static_cast<double>(largest)), largest);
  EXPECT_EQ(floatFromDouble(1e300), infinity);
  EXPECT_EQ(floatFromDouble(-1e300), -infinity);
  EXPECT_TRUE(std::isnan(floatFromDouble(std::nan(""))));
}

TEST(Numbers, ATextCountsAsTheNumberThatItBeginsWith) {
  EXPECT_EQ(leadingNumber("1.5x"), 1.5);
  EXPECT_EQ(leadingNumber("1.2.3"), 1.2);
  EXPECT_EQ(leadingNumber("-2 "), -2);
  EXPECT_EQ(leadingNumber("+.5"), 0.5);
  EXPECT_EQ(leadingNumber(" \t\n\r\f\v7"), 7);
  EXPECT_EQ(leadingNumber("0x10"), 0);
}

TEST(Numbers, AnExponentBelongsToTheNumberWhenItHasDigits) {
  EXPECT_EQ(leadingNumber("2e3"), 2000);
  EXPECT_EQ(leadingNumber("2E-1z"), 0.2);
  EXPECT_EQ(leadingNumber("2e+1"), 20);
  EXPECT_EQ(leadingNumber("2.5e"), 2.5);
  EXPECT_EQ(leadingNumber("2.5e+"), 2.5);
  EXPECT_EQ(leadingNumber("2.5e+x"), 2.5);
}

TEST(Numbers, ATextThatBeginsWithNoNumberCountsAsNought) {
  for (const char* text : {"", " ", "-", "+", ".", "e5", "--1", "x1"})
    EXPECT_EQ(leadingNumber(text), 0) << text;
}

TEST(Numbers, ATextBeyondAllNumbersCountsAsTheLargest) {
  EXPECT_EQ(leadingNumber("1e400"), std::numeric_limits<double>::max());
  EXPECT_EQ(leadingNumber("-1e400"), std::numeric_limits<double>::lowest());
}

TEST(Numbers, ABooleanAndAStringAreNoNumbers) {
  EXPECT_EQ(int32Value(true), std::nullopt);
  EXPECT_EQ(int32Value("5"), std::nullopt);
  EXPECT_EQ(doubleValue(false), std::nullopt);
  EXPECT_EQ(doubleValue(3), 3.0);
}

} // namespace
} // namespace tavrel
