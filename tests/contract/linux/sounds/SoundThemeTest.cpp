#include "platform/linux/sounds/SoundTheme.h"
#include "support/EnvironmentVariable.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace tavrel {
namespace {

TEST(SoundTheme, ASoundOfAnyInstalledThemeIsFound) {
  const TemporaryFolder data;
  const EnvironmentVariable home("XDG_DATA_HOME", data.path());
  EXPECT_FALSE(isInSoundTheme("tavrel-ding"));
  std::filesystem::create_directories(data.path("sounds/mine/stereo"));
  data.write("sounds/mine/stereo/tavrel-ding.oga", "");
  data.write("sounds/mine/tavrel-dong.wav", "");
  data.write("sounds/tavrel-loose.wav", "");
  EXPECT_TRUE(isInSoundTheme("tavrel-ding"));
  EXPECT_TRUE(isInSoundTheme("tavrel-dong"));
  EXPECT_FALSE(isInSoundTheme("tavrel-loose"));
  EXPECT_FALSE(isInSoundTheme("Tavrel-ding"));
  EXPECT_FALSE(isInSoundTheme(""));
}

} // namespace
} // namespace tavrel
