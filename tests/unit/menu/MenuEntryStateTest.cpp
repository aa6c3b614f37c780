#include "menu/MenuEntryState.h"
#include "platform/memory/MenuText.h"
#include "support/MenuEntries.h"

#include <gtest/gtest.h>

namespace tavrel {
namespace {

class MenuEntryState : public ::testing::Test {
protected:
  MenuEntryState() {
    menu.add(entry("first"));
    menu.add(entry("second"));
  }

  std::string shown() { return menuText(menu, MenuTextDetail::everything); }

  void separate(bool hidden = false) { menu.addSeparator().hidden = hidden; }

  Menu menu;
};

TEST_F(MenuEntryState, AnEntryIsHiddenAndShown) {
  EXPECT_FALSE(isHiddenMenuItem(menu, 1));
  hideMenuItem(menu, 1, true);
  EXPECT_TRUE(isHiddenMenuItem(menu, 1));
  EXPECT_EQ(shown(), "first\nsecond [hidden]\n");
  hideMenuItem(menu, 1, false);
  EXPECT_EQ(shown(), "first\nsecond\n");
}

TEST_F(MenuEntryState, AnEntryIsDisabled) {
  disableMenuItem(menu, 0);
  EXPECT_EQ(shown(), "first [disabled]\nsecond\n");
}

TEST_F(MenuEntryState, AnEntryIsIndentedFromLevelOneOn) {
  setMenuItemIndent(menu, 1, 2);
  EXPECT_EQ(menu.items[1]->indentation, 2);
  setMenuItemIndent(menu, 1, 0);
  setMenuItemIndent(menu, 1, -1);
  EXPECT_EQ(menu.items[1]->indentation, 2);
  setMenuItemIndent(menu, 1, 1);
  EXPECT_EQ(menu.items[1]->indentation, 1);
}

TEST_F(MenuEntryState, WhereThereIsNoEntryNothingHappens) {
  hideMenuItem(menu, 2, true);
  disableMenuItem(menu, 2);
  setMenuItemIndent(menu, 2, 1);
  validateSeparator(menu, 2);
  EXPECT_FALSE(isHiddenMenuItem(menu, 2));
  EXPECT_EQ(shown(), "first\nsecond\n");
}

TEST_F(MenuEntryState, ASeparatorBetweenEntriesHidesNothing) {
  separate();
  menu.add(entry("third"));
  validateSeparator(menu, 0);
  EXPECT_EQ(shown(), "first\nsecond\n----\nthird\n");
}

TEST_F(MenuEntryState, ASeparatorAtTheEndHidesTheEntryAtTheStart) {
  separate();
  validateSeparator(menu, 0);
  EXPECT_EQ(shown(), "first [hidden]\nsecond\n----\n");
}

TEST_F(MenuEntryState, TwoSeparatorsThatMeetHideTheEntryAtTheStart) {
  separate();
  separate();
  menu.add(entry("third"));
  validateSeparator(menu, 1);
  EXPECT_EQ(shown(), "first\nsecond [hidden]\n----\n----\nthird\n");
}

TEST_F(MenuEntryState, HiddenEntriesDoNotKeepSeparatorsApart) {
  separate();
  menu.add(entry("third")).hidden = true;
  separate();
  menu.add(entry("fourth"));
  validateSeparator(menu, 0);
  EXPECT_EQ(shown(), "first [hidden]\nsecond\n----\nthird [hidden]\n----\nfourth\n");
}

TEST_F(MenuEntryState, AHiddenSeparatorCountsForNothing) {
  separate(true);
  validateSeparator(menu, 0);
  EXPECT_EQ(shown(), "first\nsecond\n---- [hidden]\n");
}

TEST_F(MenuEntryState, WhatComesBeforeTheStartIsNotLookedAt) {
  Menu separators;
  separators.addSeparator();
  separators.addSeparator();
  separators.add(entry("first"));
  validateSeparator(separators, 1);
  EXPECT_EQ(menuText(separators, MenuTextDetail::everything), "----\n----\nfirst\n");
}

} // namespace
} // namespace tavrel
