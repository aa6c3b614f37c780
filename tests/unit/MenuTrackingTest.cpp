#include "platform/MenuTracking.h"

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

  MenuDiary diary;
  std::shared_ptr<Menu> outer = std::make_shared<Menu>("outer");
  std::shared_ptr<Menu> inner = std::make_shared<Menu>("inner");
  MenuTracking tracking;
};

TEST_F(MenuTrackingTest, WhatIsChosenAfterAllHasClosedIsDispatchedFirst) {
  tracking.update(outer);
  tracking.update(inner);
  tracking.closed(*inner);
  tracking.closed(*outer);
  tracking.chosen(inner->items[0]);
  tracking.finish();
  EXPECT_THAT(diary.lines, ElementsAre("will open outer", "needs update outer", "will open inner",
                                       "needs update inner", "chosen File", "did close inner",
                                       "did close outer"));
}

TEST_F(MenuTrackingTest, AnInnerMenuThatOpensAgainIsSaidToHaveClosedBefore) {
  tracking.update(outer);
  tracking.update(inner);
  tracking.closed(*inner);
  diary.lines.clear();
  tracking.update(inner);
  EXPECT_THAT(diary.lines, ElementsAre("did close inner", "will open inner", "needs update inner"));
}

TEST_F(MenuTrackingTest, TheMenuCanOpenAgainWhileWhatWasChosenIsAtWork) {
  bool wasOpen = true;
  diary.act = [&](MenuItem&) { wasOpen = tracking.isOpen(); };
  tracking.update(outer);
  EXPECT_TRUE(tracking.isOpen());
  tracking.chosen(outer->items[0]);
  tracking.finish();
  EXPECT_FALSE(wasOpen);
}

TEST_F(MenuTrackingTest, WhatIsChosenTooLateIsDispatchedAtOnce) {
  tracking.update(outer);
  tracking.finish();
  tracking.chosen(outer->items[0]);
  EXPECT_EQ(diary.lines.back(), "chosen Open");
}

TEST_F(MenuTrackingTest, AMenuThatIsForgottenIsToldNothingMore) {
  diary.act = [&](MenuItem&) { tracking.forget(*outer); };
  tracking.update(outer);
  tracking.chosen(outer->items[0]);
  tracking.finish();
  EXPECT_EQ(diary.lines.back(), "chosen Open");
}

TEST_F(MenuTrackingTest, AMenuWithoutADelegateOpensAndCloses) {
  inner->delegate = nullptr;
  tracking.setTarget(nullptr);
  tracking.update(inner);
  tracking.chosen(inner->items[0]);
  tracking.finish();
  EXPECT_FALSE(tracking.isOpen());
}

} // namespace
} // namespace tavrel
