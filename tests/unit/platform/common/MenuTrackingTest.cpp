#include "platform/common/MenuTracking.h"

#include "contract/MenuDiary.h"
#include "support/MenuEntries.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavrel {
namespace {

using ::testing::ElementsAre;

class MenuTrackingTest : public ::testing::Test {
protected:
  MenuTrackingTest() {
    outer->delegate = &diary;
    inner->delegate = &diary;
    tracking.setTarget(&diary);
    outer->add(entry("Open"));
    inner->add(entry("File"));
  }

  void open(const std::shared_ptr<Menu>& menu) {
    tracking.update(menu);
    tracking.opened(*menu);
  }

  MenuDiary diary;
  std::shared_ptr<Menu> outer = std::make_shared<Menu>("outer");
  std::shared_ptr<Menu> inner = std::make_shared<Menu>("inner");
  MenuTracking tracking;
};

TEST_F(MenuTrackingTest, WhatIsChosenAfterAllHasClosedIsDispatchedFirst) {
  open(outer);
  open(inner);
  tracking.closed(*inner);
  tracking.closed(*outer);
  tracking.chosen(inner->items[0]);
  tracking.finish();
  EXPECT_THAT(diary.lines, ElementsAre("will open outer", "needs update outer", "will open inner",
                                       "needs update inner", "chosen File", "did close inner",
                                       "did close outer"));
}

TEST_F(MenuTrackingTest, AnInnerMenuThatOpensAgainIsSaidToHaveClosedBefore) {
  open(outer);
  open(inner);
  tracking.closed(*inner);
  diary.lines.clear();
  open(inner);
  EXPECT_THAT(diary.lines, ElementsAre("did close inner", "will open inner", "needs update inner"));
}

TEST_F(MenuTrackingTest, TheMenuCanOpenAgainWhileWhatWasChosenIsAtWork) {
  bool wasOpen = true;
  diary.act = [&](MenuItem&) { wasOpen = tracking.isOpen(); };
  open(outer);
  EXPECT_TRUE(tracking.isOpen());
  tracking.chosen(outer->items[0]);
  tracking.finish();
  EXPECT_FALSE(wasOpen);
}

TEST_F(MenuTrackingTest, WhatIsChosenTooLateIsDispatchedAtOnce) {
  open(outer);
  tracking.finish();
  tracking.chosen(outer->items[0]);
  EXPECT_EQ(diary.lines.back(), "chosen Open");
}

TEST_F(MenuTrackingTest, AMenuThatIsForgottenIsToldNothingMore) {
  diary.act = [&](MenuItem&) { tracking.forget(*outer); };
  open(outer);
  tracking.chosen(outer->items[0]);
  tracking.finish();
  EXPECT_EQ(diary.lines.back(), "chosen Open");
}

TEST_F(MenuTrackingTest, AMenuWithoutADelegateOpensAndCloses) {
  inner->delegate = nullptr;
  tracking.setTarget(nullptr);
  open(inner);
  tracking.chosen(inner->items[0]);
  tracking.finish();
  EXPECT_FALSE(tracking.isOpen());
}

TEST_F(MenuTrackingTest, AMenuThatIsFilledAndNeverShowsKeepsNoOtherFromOpening) {
  tracking.update(outer);
  EXPECT_FALSE(tracking.isOpen());
  tracking.finish();
  EXPECT_EQ(diary.lines.back(), "did close outer");
}

} // namespace
} // namespace tavrel
