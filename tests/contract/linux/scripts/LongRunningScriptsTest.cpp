#include "platform/linux/scripts/LongRunningScripts.h"

#include "contract/linux/scripts/FakeNotifications.h"
#include "support/WaitFor.h"

#include <chrono>
#include <gtest/gtest.h>

namespace tavrel {
namespace {

TEST(LongRunningScripts, AShortRunIsNotMentioned) {
  FakeNotifications service;
  LongRunningScripts runs(1000);
  (void)LongRunningScripts::RunningScript(runs, "Short");
  EXPECT_EQ(service.shown, 0);
  EXPECT_EQ(service.closed, 0);
}

TEST(LongRunningScripts, ALongRunIsNamedUntilItEnds) {
  FakeNotifications service;
  LongRunningScripts runs(0.01);
  {
    const LongRunningScripts::RunningScript run(runs, "Tidy up");
    EXPECT_TRUE(waitFor([&] { return service.shown == 1; }));
    EXPECT_EQ(service.title, "Tidy up");
    EXPECT_FALSE(runs.shouldStop());
  }
  EXPECT_EQ(service.closed, 1);
}

TEST(LongRunningScripts, TheUserCanStopAScript) {
  FakeNotifications service;
  service.choosesStop = true;
  LongRunningScripts runs(0.01);
  const LongRunningScripts::RunningScript run(runs, "Endless");
  EXPECT_TRUE(waitFor([&] { return runs.shouldStop(); }));
}

TEST(LongRunningScripts, AStopIsForOneRunOnly) {
  FakeNotifications service;
  service.choosesStop = true;
  LongRunningScripts runs(0.01);
  {
    const LongRunningScripts::RunningScript run(runs, "Endless");
    EXPECT_TRUE(waitFor([&] { return runs.shouldStop(); }));
  }
  service.choosesStop = false;
  const LongRunningScripts::RunningScript next(runs, "Next");
  EXPECT_FALSE(runs.shouldStop());
}

TEST(LongRunningScripts, AScriptInsideAScriptIsPartOfIt) {
  FakeNotifications service;
  LongRunningScripts runs(0.01);
  const LongRunningScripts::RunningScript outer(runs, "Outer");
  EXPECT_TRUE(waitFor([&] { return service.shown == 1; }));
  (void)LongRunningScripts::RunningScript(runs, "Inner");
  EXPECT_EQ(service.closed, 0);
}

TEST(LongRunningScripts, AServiceThatHangsDoesNotHoldUpTheEnd) {
  FakeNotifications service;
  service.hangs = true;
  LongRunningScripts runs(0.01);
  const auto start = std::chrono::steady_clock::now();
  {
    const LongRunningScripts::RunningScript run(runs, "Long");
    EXPECT_TRUE(waitFor([&] { return service.shown == 1; }));
  }
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
}

TEST(LongRunningScripts, WithoutAServiceNothingIsShown) {
  LongRunningScripts runs(0.01);
  const LongRunningScripts::RunningScript run(runs, "Lonely");
  EXPECT_FALSE(runs.shouldStop());
}

} // namespace
} // namespace tavrel
