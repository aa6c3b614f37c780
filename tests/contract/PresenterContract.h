#pragma once

#include "base/Modifiers.h"
#include "contract/MenuDiary.h"
#include "contract/MenuHands.h"
#include "platform/Presenter.h"
#include "platform/common/MenuRows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace tavrel {

/// World: `presenter()`, `person` (what a person does while a menu is open: a function given the
/// hands), `holdOption()` and `releaseOption()` before a menu opens, `movePointer(Point)`.
template <typename World> class PresenterContract : public ::testing::Test {
protected:
  PresenterContract() {
    menu.delegate = &diary;
    world.presenter().setActionTarget(&diary);
  }

  MenuItem& add(Menu& to, std::string title) {
    MenuItem& item = to.add({});
    item.title = std::move(title);
    item.action = MenuAction::statusMenuDidSelected;
    return item;
  }
  std::shared_ptr<Menu> submenu(std::string title) {
    auto inner = std::make_shared<Menu>(std::move(title));
    inner->delegate = &diary;
    return inner;
  }
  void popUp() { world.presenter().popUp(menu, {100, 500}, MenuFont::standard); }

  MenuDiary diary;
  Menu menu{"menu"};
  World world;
};
TYPED_TEST_SUITE_P(PresenterContract);

using ::testing::ElementsAre;

TYPED_TEST_P(PresenterContract, AMenuTellsItsDelegateAsItOpensAndCloses) {
  this->add(this->menu, "Open");
  this->popUp();
  EXPECT_THAT(this->diary.lines,
              ElementsAre("will open menu", "needs update menu", "did close menu"));
}

TYPED_TEST_P(PresenterContract, AChosenEntryIsDispatchedBeforeTheMenuIsSaidToHaveClosed) {
  this->add(this->menu, "Open");
  this->add(this->menu, "Other");
  this->world.person = [](MenuHands& hands) { EXPECT_TRUE(hands.choose("Other")); };
  this->popUp();
  EXPECT_THAT(this->diary.lines,
              ElementsAre("will open menu", "needs update menu", "chosen Other", "did close menu"));
}

TYPED_TEST_P(PresenterContract, TheChosenEntryIsTheVeryOneOfTheMenu) {
  const MenuItem* added = &this->add(this->menu, "Open");
  const MenuItem* chosen = nullptr;
  this->diary.act = [&](MenuItem& item) { chosen = &item; };
  this->world.person = [](MenuHands& hands) { EXPECT_TRUE(hands.choose("Open")); };
  this->popUp();
  EXPECT_EQ(chosen, added);
}

TYPED_TEST_P(PresenterContract, WhatTheDelegateChangesBeforeTheMenuShowsIsShown) {
  this->add(this->menu, "Old");
  this->diary.update = [this](Menu& opened) {
    opened.removeAll();
    this->add(opened, "New");
  };
  std::vector<std::string> rows;
  this->world.person = [&](MenuHands& hands) { rows = hands.rows(); };
  this->popUp();
  EXPECT_THAT(rows, ElementsAre("New"));
}

TYPED_TEST_P(PresenterContract, ASubmenuIsFilledAsItOpensAndClosesWithTheMenu) {
  this->add(this->menu, "Folder").submenu = this->submenu("inner");
  this->diary.update = [this](Menu& opened) {
    if (opened.title == "inner")
      this->add(opened, "File");
  };
  this->world.person = [](MenuHands& hands) {
    EXPECT_TRUE(hands.openSubmenu("Folder"));
    EXPECT_TRUE(hands.choose("File"));
  };
  this->popUp();
  EXPECT_THAT(this->diary.lines, ElementsAre("will open menu", "needs update menu",
                                             "will open inner", "needs update inner", "chosen File",
                                             "did close inner", "did close menu"));
}

TYPED_TEST_P(PresenterContract, ASubmenuThatClosesWhileItsMenuStaysIsToldSo) {
  this->add(this->menu, "Folder").submenu = this->submenu("inner");
  this->add(*this->menu.items[0]->submenu, "File");
  this->world.person = [this](MenuHands& hands) {
    EXPECT_TRUE(hands.openSubmenu("Folder"));
    hands.closeSubmenu();
    EXPECT_TRUE(hands.openSubmenu("Folder"));
    EXPECT_EQ(this->diary.lines.size(), 7U);
  };
  this->popUp();
  EXPECT_THAT(this->diary.lines,
              ElementsAre("will open menu", "needs update menu", "will open inner",
                          "needs update inner", "did close inner", "will open inner",
                          "needs update inner", "did close inner", "did close menu"));
}

TYPED_TEST_P(PresenterContract, AnEntryThatOpensASubmenuCanBeChosenWhenItHasAnAction) {
  this->add(this->menu, "Folder").submenu = this->submenu("inner");
  this->world.person = [](MenuHands& hands) { EXPECT_TRUE(hands.choose("Folder")); };
  this->popUp();
  EXPECT_THAT(this->diary.lines, ElementsAre("will open menu", "needs update menu", "chosen Folder",
                                             "did close menu"));
}

TYPED_TEST_P(PresenterContract, AlternatesComeAndGoWithTheOptionKey) {
  this->add(this->menu, "Open");
  MenuItem& move = this->add(this->menu, "Move");
  move.isAlternate = true;
  move.keyEquivalentModifierMask = modifier::option;
  this->add(this->menu, "Last");
  std::vector<std::vector<std::string>> rows;
  this->world.person = [&](MenuHands& hands) {
    rows.push_back(hands.rows());
    hands.holdOption();
    rows.push_back(hands.rows());
    hands.releaseOption();
    rows.push_back(hands.rows());
    hands.holdOption();
    EXPECT_TRUE(hands.choose("Move"));
    hands.releaseOption();
  };
  this->popUp();
  EXPECT_THAT(rows, ElementsAre(ElementsAre("Open", "Last"), ElementsAre("Move", "Last"),
                                ElementsAre("Open", "Last")));
  EXPECT_THAT(this->diary.lines, ::testing::Contains("chosen Move"));
}

TYPED_TEST_P(PresenterContract, AMenuThatOpensWithOptionHeldShowsItsAlternates) {
  this->add(this->menu, "Open");
  MenuItem& move = this->add(this->menu, "Move");
  move.isAlternate = true;
  move.keyEquivalentModifierMask = modifier::option;
  std::vector<std::string> rows;
  this->world.person = [&](MenuHands& hands) { rows = hands.rows(); };
  this->world.holdOption();
  this->popUp();
  this->world.releaseOption();
  EXPECT_THAT(rows, ElementsAre("Move"));
}

TYPED_TEST_P(PresenterContract, HiddenDisabledAndInertEntriesCannotBeChosen) {
  this->add(this->menu, "Hidden").hidden = true;
  this->add(this->menu, "Disabled").enabled = false;
  this->add(this->menu, "Header").action = MenuAction::none;
  this->menu.addSeparator();
  this->add(this->menu, "Open");
  this->world.person = [](MenuHands& hands) {
    EXPECT_FALSE(hands.choose("Hidden"));
    EXPECT_FALSE(hands.choose("Disabled"));
    EXPECT_FALSE(hands.choose("Header"));
  };
  this->popUp();
  EXPECT_EQ(this->diary.lines.size(), 3U);
}

TYPED_TEST_P(PresenterContract, EveryLineIsShownAlsoBesideAnotherAndAtTheEnds) {
  this->menu.addSeparator();
  this->add(this->menu, "Open");
  this->menu.addSeparator();
  this->menu.addSeparator();
  this->add(this->menu, "Close");
  this->menu.addSeparator();
  std::vector<std::string> rows;
  this->world.person = [&](MenuHands& hands) { rows = hands.rows(); };
  this->popUp();
  EXPECT_THAT(rows, ElementsAre("", "Open", "", "", "Close", ""));
}

TYPED_TEST_P(PresenterContract, ASecondMenuDoesNotOpenOverAnOpenOne) {
  this->add(this->menu, "Open");
  Menu other("other");
  other.delegate = &this->diary;
  this->world.person = [&](MenuHands&) {
    this->world.presenter().popUp(other, {100, 500}, MenuFont::standard);
  };
  this->popUp();
  EXPECT_THAT(this->diary.lines,
              ElementsAre("will open menu", "needs update menu", "did close menu"));
}

TYPED_TEST_P(PresenterContract, AMenuCanOpenWhileAChosenEntryIsStillAtWork) {
  this->add(this->menu, "Open");
  this->world.person = [](MenuHands& hands) { EXPECT_TRUE(hands.choose("Open")); };
  this->diary.act = [this](MenuItem&) {
    this->world.person = [](MenuHands&) {};
    this->popUp();
  };
  this->popUp();
  EXPECT_THAT(this->diary.lines,
              ElementsAre("will open menu", "needs update menu", "chosen Open", "will open menu",
                          "needs update menu", "did close menu", "did close menu"));
}

TYPED_TEST_P(PresenterContract, AnEmptyMenuWithoutADelegateOpensAndCloses) {
  Menu empty;
  this->world.presenter().setActionTarget(nullptr);
  this->world.presenter().popUp(empty, {100, 500}, MenuFont::small);
  EXPECT_THAT(this->diary.lines, ElementsAre());
}

TYPED_TEST_P(PresenterContract, AnEntryThatVanishesFromTheMenuWhileItIsOpenCanStillBeChosen) {
  this->add(this->menu, "Open");
  this->world.person = [this](MenuHands& hands) {
    EXPECT_TRUE(hands.choose("Open"));
    this->menu.removeAll();
  };
  this->popUp();
  EXPECT_THAT(this->diary.lines, ::testing::Contains("chosen Open"));
}

TYPED_TEST_P(PresenterContract, ThePointerIsToldFromTheBottomLeftCorner) {
  this->world.movePointer({0, 0});
  EXPECT_EQ(this->world.presenter().pointerLocation(), (Point{0, 0}));
  this->world.movePointer({30, 200});
  EXPECT_EQ(this->world.presenter().pointerLocation(), (Point{30, 200}));
}

REGISTER_TYPED_TEST_SUITE_P(
    PresenterContract, AMenuTellsItsDelegateAsItOpensAndCloses,
    AChosenEntryIsDispatchedBeforeTheMenuIsSaidToHaveClosed, TheChosenEntryIsTheVeryOneOfTheMenu,
    WhatTheDelegateChangesBeforeTheMenuShowsIsShown, ASubmenuIsFilledAsItOpensAndClosesWithTheMenu,
    ASubmenuThatClosesWhileItsMenuStaysIsToldSo,
    AnEntryThatOpensASubmenuCanBeChosenWhenItHasAnAction, AlternatesComeAndGoWithTheOptionKey,
    AMenuThatOpensWithOptionHeldShowsItsAlternates, HiddenDisabledAndInertEntriesCannotBeChosen,
    EveryLineIsShownAlsoBesideAnotherAndAtTheEnds, ASecondMenuDoesNotOpenOverAnOpenOne,
    AMenuCanOpenWhileAChosenEntryIsStillAtWork, AnEmptyMenuWithoutADelegateOpensAndCloses,
    AnEntryThatVanishesFromTheMenuWhileItIsOpenCanStillBeChosen,
    ThePointerIsToldFromTheBottomLeftCorner);

} // namespace tavrel
