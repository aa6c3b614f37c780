#include "contract/ClockContract.h"

#include "platform/memory/MemoryClock.h"

namespace tavrel {
namespace {

struct MemoryClockWorld {
  MemoryClock adapter;
  Clock& clock() { return adapter; }
  void pass(double seconds) { adapter.advance(seconds); }
};

INSTANTIATE_TYPED_TEST_SUITE_P(Memory, ClockContract, MemoryClockWorld);

TEST(MemoryClock, WritesDownEverySleepAndMovesOnByIt) {
  MemoryClock clock;
  clock.sleep(0.1);
  clock.sleep(0.01);
  EXPECT_THAT(clock.control.sleeps, ::testing::ElementsAre(0.1, 0.01));
  EXPECT_DOUBLE_EQ(clock.now(), 0.11);
}

TEST(MemoryClock, ATimerSeesTheTimeItFellDueAt) {
  MemoryClock clock;
  double seen = 0;
  (void)clock.schedule(2, [&] { seen = clock.now(); });
  clock.advance(10);
  EXPECT_EQ(seen, 2);
  EXPECT_EQ(clock.now(), 10);
}

TEST(MemoryClock, WhatFellDueInASleepFiresAtTheNextTurn) {
  MemoryClock clock;
  double seen = 0;
  (void)clock.schedule(1, [&] { seen = clock.now(); });
  clock.sleep(3);
  EXPECT_EQ(seen, 0);
  clock.advance(0);
  EXPECT_EQ(seen, 3);
}

} // namespace
} // namespace tavrel
