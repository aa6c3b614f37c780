#include "platform/linux/system/UserFolders.h"

#include <cstdlib>
#include <gtest/gtest.h>

namespace tavrel {
namespace {

TEST(PreferenceFolder, FollowsTheEnvironment) {
  ::setenv("XDG_CONFIG_HOME", "/somewhere", 1);
  EXPECT_EQ(preferenceFolder(), "/somewhere");
  ::setenv("XDG_CONFIG_HOME", "not/absolute", 1);
  ::setenv("HOME", "/home/anna", 1);
  EXPECT_EQ(preferenceFolder(), "/home/anna/.config");
}

} // namespace
} // namespace tavrel
