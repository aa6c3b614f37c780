#include "platform/linux/sounds/SoundPlayer.h"
#include "support/EnvironmentVariable.h"
#include "support/TemporaryFolder.h"
#include "support/WaitFor.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>

namespace tavrel {
namespace {

const char* const popFile = TAVREL_RESOURCES "/sounds/Pop.wav";

TEST(SoundPlayer, WithoutASoundCardNothingIsHeardAndOneLineSaysSo) {
  const TemporaryFolder folder;
  const EnvironmentVariable driver("CANBERRA_DRIVER", "alsa");
  const EnvironmentVariable card("ALSA_CONFIG_PATH", folder.write("alsa.conf", ""));
  ::testing::internal::CaptureStderr();
  std::atomic<int> unheard = 0;
  SoundPlayer player;
  for (int i = 0; i < 3; ++i)
    player.play({SoundRequest::Kind::file, popFile, [&] { ++unheard; }});
  EXPECT_TRUE(waitFor([&] { return unheard == 3; }));
  const std::string said = ::testing::internal::GetCapturedStderr();
  EXPECT_EQ(std::count(said.begin(), said.end(), '\n'), 1) << said;
  EXPECT_THAT(said, ::testing::HasSubstr("no sounds can be played: "));
}

TEST(SoundPlayer, ASoundThatIsPlayedIsNotReportedAsUnheard) {
  const TemporaryFolder folder;
  const EnvironmentVariable driver("CANBERRA_DRIVER", "alsa");
  const EnvironmentVariable card("ALSA_CONFIG_PATH",
                                 folder.write("alsa.conf", "pcm.!default { type null }"));
  std::atomic<bool> unheard = false;
  std::atomic<bool> done = false;
  SoundPlayer player;
  player.play({SoundRequest::Kind::file, popFile, [&] { unheard = true; }});
  player.play({SoundRequest::Kind::file, "/nonexistent.wav", [&] { done = true; }});
  EXPECT_TRUE(waitFor([&] { return done.load(); }));
  EXPECT_FALSE(unheard);
}

} // namespace
} // namespace tavrel
