#include "platform/common/HotKeyReleases.h"

#include <gtest/gtest.h>

namespace tavrel {
namespace {

TEST(HotKeyReleases, AReleaseToldTwiceIsNewsOnce) {
  HotKeyReleases releases;
  releases.pressed(7);
  EXPECT_TRUE(releases.isFirst(7));
  EXPECT_FALSE(releases.isFirst(7));
}

TEST(HotKeyReleases, APressMakesTheNextReleaseNews) {
  HotKeyReleases releases;
  EXPECT_TRUE(releases.isFirst(7));
  releases.pressed(7);
  EXPECT_TRUE(releases.isFirst(7));
}

TEST(HotKeyReleases, OneKeyDoesNotStandForAnother) {
  HotKeyReleases releases;
  EXPECT_TRUE(releases.isFirst(7));
  EXPECT_TRUE(releases.isFirst(8));
}

} // namespace
} // namespace tavrel
