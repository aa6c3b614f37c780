#include "invoke/LongPress.h"
#include "support/CoreTest.h"

#include <cmath>

namespace tavrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class LongPressTest : public CoreTest {
protected:
  LongPressTest() { EXPECT_EQ(longPress.watch(), 0); }

  void change(ButtonChange what) { desktop.eventMonitor.control.buttonHandler(what); }
  void press() { change(ButtonChange::primaryPressed); }
  void release() { change(ButtonChange::primaryReleased); }
  void moveTo(Point where) {
    desktop.presenter.control.pointer = where;
    change(ButtonChange::moved);
  }
  void pass(double seconds) { desktop.clock.advance(seconds); }

  float interval = 0.5F;
  bool isTarget = true;
  std::vector<Point> asked;
  std::vector<float> silenced;
  int opened = 0;
  std::function<void()> whileOpen = [] {};
  LongPress longPress{{[this] { return interval; },
                       [this](Point where) {
                         asked.push_back(where);
                         return isTarget;
                       },
                       [this](float seconds) { silenced.push_back(seconds); },
                       [this] {
                         ++opened;
                         whileOpen();
                       }}};
};

TEST_F(LongPressTest, APressHeldForTheIntervalOpensThePopUp) {
  press();
  pass(0.49);
  EXPECT_EQ(opened, 0);
  pass(0.02);
  EXPECT_EQ(opened, 1);
}

TEST_F(LongPressTest, APressOpensThePopUpOnceHoweverLongItIsHeld) {
  press();
  pass(5);
  release();
  pass(5);
  EXPECT_EQ(opened, 1);
}

TEST_F(LongPressTest, AReleaseBeforeTheIntervalIsAClick) {
  press();
  pass(0.4);
  release();
  pass(5);
  EXPECT_EQ(opened, 0);
}

TEST_F(LongPressTest, TwoShortPressesAreNoLongOne) {
  press();
  pass(0.3);
  release();
  press();
  pass(0.3);
  release();
  EXPECT_EQ(opened, 0);
}

TEST_F(LongPressTest, ADragIsNoLongPress) {
  press();
  moveTo({LongPress::slop + 1, 0});
  pass(1);
  EXPECT_EQ(opened, 0);
}

TEST_F(LongPressTest, ADragThatComesBackIsStillADrag) {
  press();
  moveTo({100, 100});
  moveTo({0, 0});
  pass(1);
  EXPECT_EQ(opened, 0);
}

TEST_F(LongPressTest, AHandMayTremble) {
  press();
  moveTo({LongPress::slop, 0});
  moveTo({0, -LongPress::slop});
  pass(1);
  EXPECT_EQ(opened, 1);
}

TEST_F(LongPressTest, APointerThatWasMovedByAProgramIsSeenAtTheEnd) {
  press();
  desktop.presenter.control.pointer = {300, 300};
  pass(1);
  EXPECT_EQ(opened, 0);
}

TEST_F(LongPressTest, AnotherButtonOrAScrollEndsThePress) {
  press();
  change(ButtonChange::otherPressed);
  pass(1);
  EXPECT_EQ(opened, 0);
}

TEST_F(LongPressTest, OtherButtonsOpenNothing) {
  change(ButtonChange::otherPressed);
  pass(1);
  EXPECT_EQ(opened, 0);
  EXPECT_THAT(silenced, IsEmpty());
}

TEST_F(LongPressTest, APressOnWhatIsNoTargetOpensNothing) {
  isTarget = false;
  press();
  pass(1);
  EXPECT_EQ(opened, 0);
}

TEST_F(LongPressTest, TheTargetIsWhatLiesWhereTheButtonWentDown) {
  desktop.presenter.control.pointer = {40, 50};
  press();
  moveTo({42, 51});
  pass(1);
  EXPECT_THAT(asked, ElementsAre(Point{40, 50}));
}

TEST_F(LongPressTest, AClickAsksNobodyWhatLiesUnderIt) {
  press();
  release();
  pass(1);
  EXPECT_THAT(asked, IsEmpty());
}

TEST_F(LongPressTest, TheBeepIsSilentForTheInterval) {
  press();
  EXPECT_THAT(silenced, ElementsAre(0.5F));
}

TEST_F(LongPressTest, ADoubleClickSilencesTheBeepOnce) {
  press();
  release();
  pass(0.1);
  press();
  EXPECT_THAT(silenced, ElementsAre(0.5F));
  pass(1);
  release();
  press();
  EXPECT_THAT(silenced, ElementsAre(0.5F, 0.5F));
}

TEST_F(LongPressTest, WithoutAnIntervalThereAreNoLongPresses) {
  for (const float none : {0.0F, -1.0F, std::nanf("")}) {
    interval = none;
    press();
    pass(10);
    release();
  }
  EXPECT_EQ(opened, 0);
  EXPECT_THAT(silenced, IsEmpty());
}

TEST_F(LongPressTest, AnIntervalThatChangedCountsFromTheNextPress) {
  press();
  release();
  interval = 2;
  press();
  pass(1.5);
  EXPECT_EQ(opened, 0);
  pass(1);
  EXPECT_EQ(opened, 1);
}

TEST_F(LongPressTest, APressInTheMenuThatIsOpenOpensNoOther) {
  whileOpen = [this] {
    release();
    press();
    pass(1);
  };
  press();
  pass(1);
  EXPECT_EQ(opened, 1);
}

TEST_F(LongPressTest, NobodyIsCalledAfterItsEnd) {
  {
    LongPress other({[] { return 0.5F; },
                     [this](Point) {
                       ++opened;
                       return true;
                     },
                     [](float) {}, [this] { ++opened; }});
    EXPECT_EQ(other.watch(), 0);
    press();
  }
  pass(1);
  EXPECT_EQ(opened, 0);
  EXPECT_FALSE(desktop.eventMonitor.control.buttonHandler);
}

TEST_F(LongPressTest, ADesktopThatCannotTellOfButtonsSaysSo) {
  desktop.eventMonitor.control.status = -1;
  LongPress other({[] { return 0.5F; }, [](Point) { return true; }, [](float) {}, [] {}});
  EXPECT_EQ(other.watch(), -1);
}

/// The long press as launch arms it.
class ArmedLongPress : public ControllerTest {
protected:
  std::size_t opened(std::int32_t startType) {
    set(TVR2_PopupStartType, startType);
    set(TVR_LongPressInterval, 0.5);
    desktop.accessibility.control.roleAtPoint = "AXTextArea";
    controller.applicationWillFinishLaunching();
    if (const auto& handler = desktop.eventMonitor.control.buttonHandler)
      handler(ButtonChange::primaryPressed);
    desktop.clock.advance(0.6);
    return desktop.presenter.control.shown.size();
  }
};

TEST_F(ArmedLongPress, OpensThePopUpWhenItIsTheWayIn) {
  EXPECT_EQ(opened(2), 1U);
}

TEST_F(ArmedLongPress, IsOffUnlessChosen) {
  EXPECT_EQ(opened(1), 0U);
  EXPECT_FALSE(desktop.eventMonitor.control.buttonHandler);
}

} // namespace
} // namespace tavrel
