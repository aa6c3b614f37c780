#include "platform/common/VersionNumber.h"

#include <gtest/gtest.h>

namespace tavrel {

TEST(VersionNumber, EveryPartIsADigitAndTheMajorPartTwo) {
  EXPECT_EQ(bcdVersion({10, 6, 8}), 0x1068);
  EXPECT_EQ(bcdVersion({10, 4, 0}), 0x1040);
  EXPECT_EQ(bcdVersion({14, 2, 1}), 0x1421);
  EXPECT_EQ(bcdVersion({26, 0, 0}), 0x2600);
}

TEST(VersionNumber, PartsThatDoNotFitAreSaturated) {
  EXPECT_EQ(bcdVersion({10, 10, 5}), 0x1095);
  EXPECT_EQ(bcdVersion({10, 4, 11}), 0x1049);
  EXPECT_EQ(bcdVersion({100, 0, 0}), 0x9900);
  EXPECT_EQ(bcdVersion({-1, -1, -1}), 0);
}

TEST(VersionNumber, EverySystemSinceElevenIsAboveTenFive) {
  EXPECT_GT(bcdVersion({11, 0, 0}), 0x105F);
}

} // namespace tavrel
