#include "platform/linux/accessibility/AccessibleRoles.h"

#include <gtest/gtest.h>

namespace tavrel {
namespace {

constexpr std::uint32_t menuBar = 34, menu = 33, menuItem = 35, text = 61, entry = 79;

TEST(AccessibleRoles, WhatIsNotToBePressedLongHasItsName) {
  EXPECT_EQ(axRole({43}), "AXButton");
  EXPECT_EQ(axRole({63}), "AXToolbar");
  EXPECT_EQ(axRole({menuItem, menu}), "AXMenuItem");
  EXPECT_EQ(axRole({menu, menu}), "AXMenuItem") << "a menu in a menu";
  EXPECT_EQ(axRole({menu, menuBar}), "AXMenuBarItem");
  EXPECT_EQ(axRole({menuItem, menuBar}), "AXMenuBarItem");
  EXPECT_EQ(axRole({51}), "AXValueIndicator");
  EXPECT_EQ(axRole({48}), "AXValueIndicator") << "the thumb of a scroll bar is not told apart";
}

TEST(AccessibleRoles, WhatAPersonPressesIsOneThing) {
  for (const std::uint32_t control : {43U, 62U, 7U, 44U, 51U, menuItem, entry})
    EXPECT_TRUE(isControl(control)) << control;
  for (const std::uint32_t holder : {menu, menuBar, 23U, 39U, 63U, 29U, 0U})
    EXPECT_FALSE(isControl(holder)) << holder;
}

TEST(AccessibleRoles, TextsAreFieldsOrAreas) {
  for (const std::uint32_t role : {text, entry}) {
    EXPECT_EQ(axRole({role}), "AXTextField");
    EXPECT_EQ(axRole({role, 0, true}), "AXTextArea");
  }
}

TEST(AccessibleRoles, OthersHaveTheNamesOfTheirLike) {
  EXPECT_EQ(axRole({23}), "AXWindow");
  EXPECT_EQ(axRole({29}), "AXStaticText");
  EXPECT_EQ(axRole({27}), "AXImage");
  EXPECT_EQ(axRole({88}), "AXLink");
  EXPECT_EQ(axRole({31}), "AXList");
  EXPECT_EQ(axRole({55}), "AXTable");
  EXPECT_EQ(axRole({90}), "AXRow");
  EXPECT_EQ(axRole({56}), "AXCell");
  EXPECT_EQ(axRole({7}), "AXCheckBox");
  EXPECT_EQ(axRole({44}), "AXRadioButton");
  EXPECT_EQ(axRole({11}), "AXPopUpButton");
  EXPECT_EQ(axRole({20}), "AXGroup");
}

TEST(AccessibleRoles, WhatNobodyKnowsIsUnknown) {
  EXPECT_EQ(axRole({0}), "AXUnknown");
  EXPECT_EQ(axRole({9999}), "AXUnknown");
}

} // namespace
} // namespace tavrel
