#include "platform/common/MenuRows.h"

#include "base/Modifiers.h"
#include "support/MenuEntries.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavrel {
namespace {

using ::testing::ElementsAre;

std::vector<std::string> titles(const Menu& menu, OptionKey option) {
  std::vector<std::string> result;
  for (const MenuItem* item : visibleRows(menu, option))
    result.push_back(item->title);
  return result;
}

std::vector<std::string> nativeTitles(const Menu& menu) {
  std::vector<std::string> result;
  for (const NativeRow& row : nativeRows(menu))
    result.push_back((row.role == RowRole::alternate ? "alternate " : "") + row.item->title);
  return result;
}

MenuItem alternate(std::string title) {
  MenuItem item = entry(std::move(title));
  item.isAlternate = true;
  item.keyEquivalentModifierMask = modifier::option;
  return item;
}

TEST(MenuRows, AnAlternateReplacesItsPartnerWhileOptionIsHeld) {
  Menu menu;
  menu.add(entry("Open"));
  menu.add(alternate("Move"));
  menu.add(entry("Last"));
  EXPECT_THAT(titles(menu, OptionKey::up), ElementsAre("Open", "Last"));
  EXPECT_THAT(titles(menu, OptionKey::down), ElementsAre("Move", "Last"));
}

TEST(MenuRows, AHiddenEntryTakesNoPart) {
  Menu menu;
  menu.add(entry("Open"));
  menu.add(alternate("Move")).hidden = true;
  EXPECT_THAT(titles(menu, OptionKey::down), ElementsAre("Open"));
}

TEST(MenuRows, APartnerWithAShortcutOfItsOwnShowsBesideItsAlternate) {
  Menu menu;
  menu.add(entry("Open")).keyEquivalent = "o";
  menu.add(alternate("Move"));
  EXPECT_THAT(titles(menu, OptionKey::up), ElementsAre("Open", "Move"));
  EXPECT_THAT(titles(menu, OptionKey::down), ElementsAre("Open", "Move"));
}

TEST(MenuRows, AnAlternateWhosePartnerIsHiddenShowsByItself) {
  Menu menu;
  menu.add(entry("Open")).hidden = true;
  menu.add(alternate("Move"));
  EXPECT_THAT(titles(menu, OptionKey::up), ElementsAre("Move"));
}

TEST(MenuRows, AnAlternateWithTheSameMaskShowsBesideItsPartner) {
  Menu menu;
  menu.add(entry("Open")).keyEquivalentModifierMask = modifier::option;
  menu.add(alternate("Move"));
  EXPECT_THAT(titles(menu, OptionKey::down), ElementsAre("Open", "Move"));
}

TEST(Menu, TwoHundredThousandNestedSubmenusAreTakenApartWithoutTheStack) {
  auto menu = std::make_shared<Menu>();
  for (int depth = 0; depth < 200'000; ++depth) {
    auto outer = std::make_shared<Menu>("group");
    outer->add(entry("Inside")).submenu = std::move(menu);
    menu = std::move(outer);
  }
  EXPECT_EQ(menu->items.size(), 1U);
}

TEST(MenuRows, AToolkitThatSwapsByItselfGetsBothPartners) {
  Menu menu;
  menu.add(entry("Open"));
  menu.add(alternate("Move"));
  menu.add(entry("Last"));
  EXPECT_THAT(nativeTitles(menu), ElementsAre("Open", "alternate Move", "Last"));
}

TEST(MenuRows, SuchAToolkitShowsAnAlternateAsARowWhenItsPartnerIsHidden) {
  Menu menu;
  menu.add(entry("First"));
  menu.add(entry("Open")).hidden = true;
  menu.add(alternate("Move"));
  EXPECT_THAT(nativeTitles(menu), ElementsAre("First", "Move"));
}

TEST(MenuRows, SuchAToolkitNeverSeesHiddenRows) {
  Menu menu;
  menu.add(entry("Open"));
  menu.add(alternate("Move")).hidden = true;
  EXPECT_THAT(nativeTitles(menu), ElementsAre("Open"));
}

} // namespace
} // namespace tavrel
