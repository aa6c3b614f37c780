#include "menu/MenuEdits.h"
#include "platform/memory/MenuText.h"
#include "support/MenuEntries.h"

#include <gtest/gtest.h>

namespace tavrel {
namespace {

class MenuEdits : public ::testing::Test {
protected:
  MenuEdits() {
    menu.add(entry("first"));
    menu.add(entry("second"));
  }

  std::string shown() { return menuText(menu, MenuTextDetail::everything); }

  void separate(bool hidden = false) { menu.addSeparator().hidden = hidden; }

  Menu menu;
};

TEST_F(MenuEdits, AnEntryIsHiddenAndShown) {
  EXPECT_FALSE(isHiddenMenuItem(menu, 1));
  hideMenuItem(menu, 1, true);
  EXPECT_TRUE(isHiddenMenuItem(menu, 1));
  EXPECT_EQ(shown(), "first\nsecond [hidden]\n");
  hideMenuItem(menu, 1, false);
  EXPECT_EQ(shown(), "first\nsecond\n");
}

TEST_F(MenuEdits, AnEntryIsDisabled) {
  disableMenuItem(menu, 0);
  EXPECT_EQ(shown(), "first [disabled]\nsecond\n");
}

TEST_F(MenuEdits, AnEntryIsIndentedFromLevelOneOn) {
  setMenuItemIndent(menu, 1, 2);
  EXPECT_EQ(menu.items[1]->indentation, 2);
  setMenuItemIndent(menu, 1, 0);
  setMenuItemIndent(menu, 1, -1);
  EXPECT_EQ(menu.items[1]->indentation, 2);
  setMenuItemIndent(menu, 1, 1);
  EXPECT_EQ(menu.items[1]->indentation, 1);
}

TEST_F(MenuEdits, WhereThereIsNoEntryNothingHappens) {
  hideMenuItem(menu, 2, true);
  disableMenuItem(menu, 2);
  setMenuItemIndent(menu, 2, 1);
  validateSeparator(menu, 2);
  EXPECT_FALSE(isHiddenMenuItem(menu, 2));
  EXPECT_EQ(shown(), "first\nsecond\n");
}

TEST_F(MenuEdits, ASeparatorBetweenEntriesHidesNothing) {
  separate();
  menu.add(entry("third"));
  validateSeparator(menu, 0);
  EXPECT_EQ(shown(), "first\nsecond\n----\nthird\n");
}

TEST_F(MenuEdits, ASeparatorAtTheEndHidesTheEntryAtTheStart) {
  separate();
  validateSeparator(menu, 0);
  EXPECT_EQ(shown(), "first [hidden]\nsecond\n----\n");
}

TEST_F(MenuEdits, TwoSeparatorsThatMeetHideTheEntryAtTheStart) {
  separate();
  separate();
  menu.add(entry("third"));
  validateSeparator(menu, 1);
  EXPECT_EQ(shown(), "first\nsecond [hidden]\n----\n----\nthird\n");
}

TEST_F(MenuEdits, HiddenEntriesDoNotKeepSeparatorsApart) {
  separate();
  menu.add(entry("third")).hidden = true;
  separate();
  menu.add(entry("fourth"));
  validateSeparator(menu, 0);
  EXPECT_EQ(shown(), "first [hidden]\nsecond\n----\nthird [hidden]\n----\nfourth\n");
}

TEST_F(MenuEdits, AHiddenSeparatorCountsForNothing) {
  separate(true);
  validateSeparator(menu, 0);
  EXPECT_EQ(shown(), "first\nsecond\n---- [hidden]\n");
}

TEST_F(MenuEdits, WhatComesBeforeTheStartIsNotLookedAt) {
  Menu separators;
  separators.addSeparator();
  separators.addSeparator();
  separators.add(entry("first"));
  validateSeparator(separators, 1);
  EXPECT_EQ(menuText(separators, MenuTextDetail::everything), "----\n----\nfirst\n");
}

} // namespace
} // namespace tavrel
