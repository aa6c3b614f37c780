#include "invoke/ModifierMasks.h"

#include "base/Modifiers.h"

#include <gtest/gtest.h>

namespace tavrel {
namespace {

TEST(ModifierMasks, TheFiveModifiersAreCarriedOverAndNothingElse) {
  EXPECT_EQ(carbonModifierFlagsToCocoaModifierFlags(0x100), 0x100000U);
  EXPECT_EQ(carbonModifierFlagsToCocoaModifierFlags(0x200), 0x20000U);
  EXPECT_EQ(carbonModifierFlagsToCocoaModifierFlags(0x800), 0x80000U);
  EXPECT_EQ(carbonModifierFlagsToCocoaModifierFlags(0x1000), 0x40000U);
  EXPECT_EQ(carbonModifierFlagsToCocoaModifierFlags(0x20000), 0x800000U);
  EXPECT_EQ(carbonModifierFlagsToCocoaModifierFlags(0x400 | 0x2000 | 0x4000 | 0x8000), 0U);
}

TEST(ModifierMasks, AHotKeyAlwaysHasCommand) {
  EXPECT_EQ(hotKeyModifiers(u'a', 0), 0x100U);
  EXPECT_EQ(hotKeyModifiers(u'a', modifier::command), 0x100U);
  EXPECT_EQ(hotKeyModifiers(u'a', modifier::control), 0x1100U);
}

TEST(ModifierMasks, ShiftComesFromTheMaskOrFromACapital) {
  EXPECT_EQ(hotKeyModifiers(u'A', 0), 0x300U);
  EXPECT_EQ(hotKeyModifiers(u'Ä', 0), 0x300U);
  EXPECT_EQ(hotKeyModifiers(u'1', modifier::shift | modifier::option), 0xB00U);
}

} // namespace
} // namespace tavrel
