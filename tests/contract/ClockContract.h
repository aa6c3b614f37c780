#pragma once

#include "platform/Clock.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

namespace tavrel {

/// What every clock does. A World has `clock()` and `pass(seconds)`, which lets that much time pass
/// with timers firing.
template <class World> class ClockContract : public ::testing::Test {
protected:
  World world;
  Clock& clock = world.clock();
  std::vector<int> fired;

  TimerId note(double seconds, int what) {
    return clock.schedule(seconds, [this, what] { fired.push_back(what); });
  }
};

TYPED_TEST_SUITE_P(ClockContract);

TYPED_TEST_P(ClockContract, TimeNeverRunsBackwards) {
  double last = this->clock.now();
  for (int look = 0; look < 1000; ++look) {
    const double now = this->clock.now();
    ASSERT_GE(now, last);
    last = now;
  }
}

TYPED_TEST_P(ClockContract, ASleepTakesAtLeastItsTimeAndFiresNothing) {
  const TimerId timer = this->note(0, 1);
  const double before = this->clock.now();
  this->clock.sleep(0.03);
  EXPECT_GE(this->clock.now(), before + 0.03 - 1e-6);
  EXPECT_TRUE(this->fired.empty());
  this->clock.cancel(timer);
}

TYPED_TEST_P(ClockContract, ATimerFiresOnceAndNotBeforeItsTime) {
  const double start = this->clock.now();
  double at = 0;
  (void)this->clock.schedule(0.02, [&] {
    at = this->clock.now();
    this->fired.push_back(1);
  });
  EXPECT_TRUE(this->fired.empty());
  this->world.pass(0.1);
  EXPECT_THAT(this->fired, ::testing::ElementsAre(1));
  EXPECT_GE(at, start + 0.02 - 1e-6);
}

TYPED_TEST_P(ClockContract, TimersFireInTheOrderTheyFallDue) {
  (void)this->note(0.06, 3);
  (void)this->note(0, 1);
  (void)this->note(0.03, 2);
  this->world.pass(0.2);
  EXPECT_THAT(this->fired, ::testing::ElementsAre(1, 2, 3));
}

TYPED_TEST_P(ClockContract, TimersDueTogetherFireInTheOrderOfAsking) {
  (void)this->note(0, 1);
  (void)this->note(-5, 2);
  (void)this->note(0, 3);
  EXPECT_TRUE(this->fired.empty()) << "never before the caller is back in the event loop";
  this->world.pass(0.05);
  EXPECT_THAT(this->fired, ::testing::ElementsAre(1, 2, 3));
}

TYPED_TEST_P(ClockContract, ACancelledTimerStaysSilent) {
  const TimerId first = this->note(0, 1);
  const TimerId second = this->note(0, 2);
  EXPECT_NE(first, second);
  this->clock.cancel(first);
  this->world.pass(0.05);
  EXPECT_THAT(this->fired, ::testing::ElementsAre(2));
}

TYPED_TEST_P(ClockContract, CancellingWhatFiredOrNeverWasIsIgnored) {
  const TimerId timer = this->note(0, 1);
  this->world.pass(0.05);
  this->clock.cancel(timer);
  this->clock.cancel(timer);
  this->clock.cancel(std::numeric_limits<TimerId>::max());
  (void)this->note(0, 2);
  this->world.pass(0.05);
  EXPECT_THAT(this->fired, ::testing::ElementsAre(1, 2));
}

TYPED_TEST_P(ClockContract, ATimerMayCancelItselfAndOthers) {
  TimerId self = 0;
  TimerId other = 0;
  self = this->clock.schedule(0, [&] {
    this->fired.push_back(1);
    this->clock.cancel(self);
    this->clock.cancel(other);
  });
  other = this->note(0.02, 2);
  this->world.pass(0.1);
  EXPECT_THAT(this->fired, ::testing::ElementsAre(1));
}

TYPED_TEST_P(ClockContract, ATimerMayStartTheNextOne) {
  (void)this->clock.schedule(0, [&] {
    this->fired.push_back(1);
    (void)this->note(0.01, 2);
  });
  this->world.pass(0.1);
  EXPECT_THAT(this->fired, ::testing::ElementsAre(1, 2));
}

TYPED_TEST_P(ClockContract, ATimeThatIsNoNumberIsNoTime) {
  this->clock.sleep(std::numeric_limits<double>::quiet_NaN());
  this->clock.sleep(-1);
  EXPECT_TRUE(std::isfinite(this->clock.now())) << "the time is a number still";
  (void)this->note(std::numeric_limits<double>::quiet_NaN(), 1);
  this->world.pass(0.05);
  EXPECT_THAT(this->fired, ::testing::ElementsAre(1));
}

TYPED_TEST_P(ClockContract, ATimerInTheFarFutureWaits) {
  const TimerId timer = this->note(std::numeric_limits<double>::infinity(), 1);
  const TimerId late = this->note(1e12, 2);
  this->world.pass(0.05);
  EXPECT_TRUE(this->fired.empty());
  this->clock.cancel(timer);
  this->clock.cancel(late);
}

REGISTER_TYPED_TEST_SUITE_P(ClockContract, TimeNeverRunsBackwards,
                            ASleepTakesAtLeastItsTimeAndFiresNothing,
                            ATimerFiresOnceAndNotBeforeItsTime, TimersFireInTheOrderTheyFallDue,
                            TimersDueTogetherFireInTheOrderOfAsking, ACancelledTimerStaysSilent,
                            CancellingWhatFiredOrNeverWasIsIgnored, ATimerMayCancelItselfAndOthers,
                            ATimerMayStartTheNextOne, ATimeThatIsNoNumberIsNoTime,
                            ATimerInTheFarFutureWaits);

} // namespace tavrel
