#include "base/Numbers.h"

#include <gtest/gtest.h>

#include <cmath>

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

TEST(Numbers, ABooleanAndAStringAreNoNumbers) {
  EXPECT_EQ(int32Value(true), std::nullopt);
  EXPECT_EQ(int32Value("5"), std::nullopt);
  EXPECT_EQ(doubleValue(false), std::nullopt);
  EXPECT_EQ(doubleValue(3), 3.0);
}

} // namespace
} // namespace tavrel
