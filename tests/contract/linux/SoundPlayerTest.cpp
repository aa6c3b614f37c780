#include "platform/linux/SoundPlayer.h"
#include "support/EnvironmentVariable.h"
#include "support/WaitFor.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>

namespace tavrel {
namespace {

TEST(SoundPlayer, WithoutAServerNothingIsHeardAndOneLineTellsSo) {
  const EnvironmentVariable named("PULSE_SERVER", "unix:/nonexistent");
  ::testing::internal::CaptureStderr();
  std::atomic<int> unheard = 0;
  SoundPlayer player;
  for (const auto kind : {SoundRequest::Kind::themed, SoundRequest::Kind::file})
    player.play({kind, "/nonexistent", [&] { ++unheard; }});
  EXPECT_TRUE(waitFor([&] { return unheard == 2; }));
  const std::string said = ::testing::internal::GetCapturedStderr();
  EXPECT_EQ(std::count(said.begin(), said.end(), '\n'), 1) << said;
  EXPECT_THAT(said, ::testing::HasSubstr("no sounds can be played: "));
}

} // namespace
} // namespace tavrel
