#include "base/Modifiers.h"

#include <gmock/gmock.h>

#include <vector>

// Settings, records and other programs hold these numbers: none may change.

namespace tavrel {
namespace {

using ::testing::ElementsAre;

TEST(Modifiers, InSettingsAndRecordsAreBitsFromSixteenOn) {
  using namespace modifier;
  EXPECT_THAT((std::vector{capsLock, shift, control, option, command, function}),
              ElementsAre(1U << 16U, 1U << 17U, 1U << 18U, 1U << 19U, 1U << 20U, 1U << 23U));
}

TEST(Modifiers, InHotKeysAndKeystrokesAreBitsFromEightOn) {
  using namespace eventModifier;
  EXPECT_THAT((std::vector{command, shift, capsLock, option, control, function}),
              ElementsAre(1U << 8U, 1U << 9U, 1U << 10U, 1U << 11U, 1U << 12U, 1U << 17U));
}

TEST(Modifiers, AreKeysWithTheseCodes) {
  using namespace keyCode;
  EXPECT_THAT((std::vector{command, shift, capsLock, option, control, function}),
              ElementsAre(55, 56, 57, 58, 59, 63));
}

} // namespace
} // namespace tavrel
