#include "platform/linux/x11/selection/CopyLags.h"

#include <gtest/gtest.h>

#include <unistd.h>

namespace tavrel {
namespace {

using namespace std::chrono_literals;

struct CopyLagsTest : ::testing::Test {
  CopyLags lags;
  std::int32_t process = ::getpid();
  std::int32_t other = ::getppid();
};

TEST_F(CopyLagsTest, AProgramThatHasNotCopiedYetGetsATenthOfASecond) {
  EXPECT_EQ(lags.settleTime(process, 20ms), 100ms);
  EXPECT_EQ(lags.settleTime(process, 150ms), 150ms);
}

TEST_F(CopyLagsTest, OneThatCopiesAtOnceGetsTheLeast) {
  lags.noteCopy(process, 0ms);
  EXPECT_EQ(lags.settleTime(process, 20ms), 20ms);
}

TEST_F(CopyLagsTest, OneThatCopiesLateGetsTwiceItsLongestLag) {
  for (const auto lag : {10ms, 70ms, 0ms})
    lags.noteCopy(process, lag);
  EXPECT_EQ(lags.settleTime(process, 20ms), 140ms);
}

TEST_F(CopyLagsTest, EachProcessHasItsOwn) {
  lags.noteCopy(process, 70ms);
  EXPECT_EQ(lags.settleTime(other, 20ms), 100ms);
}

} // namespace
} // namespace tavrel
