#pragma once

#include "contract/MenuDiary.h"
#include "platform/Presenter.h"
#include "platform/StatusBar.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavrel {

/// World: `statusBar()`, `presenter()`, `picture(0 or 1)` (two images that can be told apart),
/// `shows(0 or 1)` (whether the area comes to show that one), `isEmpty()` (whether the area comes
/// to be empty), `click()` (on the item; what opens is closed at once), `choose(title)` (a click,
/// then that entry).
template <typename World> class StatusBarContract : public ::testing::Test {
protected:
  StatusBarContract() {
    menu.delegate = &diary;
    world.presenter().setActionTarget(&diary);
    MenuItem& open = menu.add({});
    open.title = "Open";
    open.action = MenuAction::statusMenuDidSelected;
  }

  std::unique_ptr<StatusItem> shownItem() {
    auto item = world.statusBar().addItem(-1.0);
    item->setImage(world.picture(0));
    item->setHighlightMode(true);
    item->setMenu(&menu);
    EXPECT_TRUE(world.shows(0));
    return item;
  }

  MenuDiary diary;
  Menu menu{"menu"};
  World world;
};
TYPED_TEST_SUITE_P(StatusBarContract);

using ::testing::ElementsAre;

TYPED_TEST_P(StatusBarContract, AClickOpensTheMenu) {
  const auto item = this->shownItem();
  this->world.click();
  EXPECT_THAT(this->diary.lines,
              ElementsAre("will open menu", "needs update menu", "did close menu"));
}

TYPED_TEST_P(StatusBarContract, AChosenEntryGoesWhereThePresenterSendsIt) {
  const auto item = this->shownItem();
  this->world.choose("Open");
  EXPECT_THAT(this->diary.lines,
              ElementsAre("will open menu", "needs update menu", "chosen Open", "did close menu"));
}

TYPED_TEST_P(StatusBarContract, TheImageChangesWhileTheMenuIsOpen) {
  const auto item = this->shownItem();
  bool changed = false;
  this->diary.update = [&](Menu&) { item->setImage(this->world.picture(1)); };
  this->world.whileOpen = [&] { changed = this->world.shows(1); };
  this->world.click();
  EXPECT_TRUE(changed);
  item->setImage(this->world.picture(0));
  EXPECT_TRUE(this->world.shows(0));
}

TYPED_TEST_P(StatusBarContract, AnItemLeavesTheAreaWhenItIsDestroyed) {
  this->shownItem().reset();
  EXPECT_TRUE(this->world.isEmpty());
}

TYPED_TEST_P(StatusBarContract, AnItemCanBeAddedAgain) {
  this->shownItem().reset();
  EXPECT_TRUE(this->world.isEmpty());
  const auto item = this->shownItem();
  this->world.click();
  EXPECT_EQ(this->diary.lines.size(), 3U);
}

REGISTER_TYPED_TEST_SUITE_P(StatusBarContract, AClickOpensTheMenu,
                            AChosenEntryGoesWhereThePresenterSendsIt,
                            TheImageChangesWhileTheMenuIsOpen, AnItemLeavesTheAreaWhenItIsDestroyed,
                            AnItemCanBeAddedAgain);

} // namespace tavrel
