#include "platform/common/KeyboardLayout.h"

#include <gtest/gtest.h>

namespace tavrel {
namespace {

TEST(KeyboardLayout, NumbersTellLayoutsApart) {
  EXPECT_NE(layoutNumber("com.apple.keylayout.US"), layoutNumber("com.apple.keylayout.Dvorak"));
  EXPECT_EQ(layoutNumber("com.apple.keylayout.US"), layoutNumber("com.apple.keylayout.US"));
}

TEST(KeyboardLayout, ThePlainTableComesFirst) {
  EXPECT_EQ(tableModifiers.front(), 0U);
}

TEST(KeyboardLayout, ASecondCharacterStandsInTheUpperHalf) {
  EXPECT_EQ(translatedKey('a', 0), 0x61U);
  EXPECT_EQ(translatedKey('a', 'b'), 0x620061U);
}

} // namespace
} // namespace tavrel
