#include "platform/linux/scripts/LongRuns.h"

#include "contract/linux/scripts/FakeNotifications.h"
#include "support/WaitFor.h"

#include <chrono>
#include <gtest/gtest.h>

namespace tavrel {
namespace {

TEST(LongRuns, AShortRunIsNotMentioned) {
  FakeNotifications service;
  LongRuns runs(1000);
  { const LongRuns::Run run(runs, "Short"); }
  EXPECT_EQ(service.shown, 0);
  EXPECT_EQ(service.closed, 0);
}

TEST(LongRuns, ALongRunIsNamedUntilItEnds) {
  FakeNotifications service;
  LongRuns runs(0.01);
  {
    const LongRuns::Run run(runs, "Tidy up");
    EXPECT_TRUE(waitFor([&] { return service.shown == 1; }));
    EXPECT_EQ(service.title, "Tidy up");
    EXPECT_FALSE(runs.shouldStop());
  }
  EXPECT_EQ(service.closed, 1);
}

TEST(LongRuns, ThePersonCanStopARun) {
  FakeNotifications service;
  service.choosesStop = true;
  LongRuns runs(0.01);
  const LongRuns::Run run(runs, "Endless");
  EXPECT_TRUE(waitFor([&] { return runs.shouldStop(); }));
}

TEST(LongRuns, AStopIsForOneRunOnly) {
  FakeNotifications service;
  service.choosesStop = true;
  LongRuns runs(0.01);
  {
    const LongRuns::Run run(runs, "Endless");
    EXPECT_TRUE(waitFor([&] { return runs.shouldStop(); }));
  }
  service.choosesStop = false;
  const LongRuns::Run next(runs, "Next");
  EXPECT_FALSE(runs.shouldStop());
}

TEST(LongRuns, AScriptInsideAScriptIsPartOfIt) {
  FakeNotifications service;
  LongRuns runs(0.01);
  const LongRuns::Run outer(runs, "Outer");
  EXPECT_TRUE(waitFor([&] { return service.shown == 1; }));
  { const LongRuns::Run inner(runs, "Inner"); }
  EXPECT_EQ(service.closed, 0);
}

TEST(LongRuns, AServiceThatHangsDoesNotHoldUpTheEnd) {
  FakeNotifications service;
  service.hangs = true;
  LongRuns runs(0.01);
  const auto start = std::chrono::steady_clock::now();
  {
    const LongRuns::Run run(runs, "Patient");
    EXPECT_TRUE(waitFor([&] { return service.shown == 1; }));
  }
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
}

TEST(LongRuns, WithoutAServiceNothingIsShown) {
  LongRuns runs(0.01);
  const LongRuns::Run run(runs, "Lonely");
  EXPECT_FALSE(runs.shouldStop());
}

} // namespace
} // namespace tavrel
