#include "platform/common/AlertLoudness.h"

#include <gtest/gtest.h>

#include <limits>

namespace tavrel {

TEST(AlertLoudness, ComesBackAsItWasSet) {
  for (const float loudness : {0.0F, 0.000001F, 0.25F, 0.6065307F, 1.0F})
    EXPECT_NEAR(loudnessOfVolume(volumeOfLoudness(loudness)), loudness, 0.000001F);
}

TEST(AlertLoudness, SilentIsZeroAndWhatCanBeHeardIsNot) {
  EXPECT_EQ(volumeOfLoudness(0), 0);
  EXPECT_EQ(loudnessOfVolume(0), 0);
  EXPECT_GT(volumeOfLoudness(std::numeric_limits<float>::min()), 0);
}

TEST(AlertLoudness, WhatLiesOutsideIsTakenForTheNearestThatIsInside) {
  EXPECT_EQ(volumeOfLoudness(2), volumeOfLoudness(1));
  EXPECT_EQ(volumeOfLoudness(-1), 0);
  EXPECT_EQ(volumeOfLoudness(std::numeric_limits<float>::quiet_NaN()), 0);
  EXPECT_EQ(loudnessOfVolume(-1), 0);
  EXPECT_EQ(loudnessOfVolume(std::numeric_limits<std::int32_t>::max()), 1);
}

} // namespace tavrel
