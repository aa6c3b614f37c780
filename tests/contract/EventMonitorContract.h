#pragma once

#include "base/Modifiers.h"
#include "platform/EventMonitor.h"
#include "platform/Keyboard.h"

#include <gmock/gmock.h>

#include <vector>

namespace tavrel {

/// What every event monitor does. A World has `monitor()`, `keyboard()`, `press(virtual key code)`
/// and `release(...)` of modifiers, `eventually(condition)`, which lets events happen meanwhile,
/// and `letEventsHappen()`, which does so for a while, as an open menu does.
template <class World> class EventMonitorContract : public ::testing::Test {
protected:
  World world;
  std::vector<std::uint32_t> states; ///< of the modifiers, at each call
};

TYPED_TEST_SUITE_P(EventMonitorContract);

TYPED_TEST_P(EventMonitorContract, EachChangeIsToldWithTheStateRightAfterIt) {
  const auto handler = [this](double) {
    this->states.push_back(this->world.keyboard().eventModifiers());
  };
  ASSERT_EQ(this->world.monitor().installModifierHandler(handler), 0);
  const auto told = [this](std::size_t count) {
    return this->world.eventually([&] { return this->states.size() == count; });
  };
  this->world.press(keyCode::command);
  EXPECT_TRUE(told(1));
  this->world.press(keyCode::shift);
  EXPECT_TRUE(told(2));
  this->world.release(keyCode::command);
  EXPECT_TRUE(told(3));
  this->world.release(keyCode::shift);
  EXPECT_TRUE(told(4));
  EXPECT_THAT(this->states, ::testing::ElementsAre(eventModifier::command,
                                                   eventModifier::command | eventModifier::shift,
                                                   eventModifier::shift, 0U));
}

TYPED_TEST_P(EventMonitorContract, EveryHandlerIsCalled) {
  int first = 0;
  int second = 0;
  ASSERT_EQ(this->world.monitor().installModifierHandler([&](double) { ++first; }), 0);
  ASSERT_EQ(this->world.monitor().installModifierHandler([&](double) { ++second; }), 0);
  this->world.press(keyCode::command);
  this->world.release(keyCode::command);
  EXPECT_TRUE(this->world.eventually([&] { return first == 2 && second == 2; }));
}

TYPED_TEST_P(EventMonitorContract, AHandlerThatRunsTheEventLoopIsCalledFromThere) {
  int calls = 0;
  int callsMeanwhile = 0;
  const auto handler = [&](double) {
    if (++calls > 1)
      return;
    this->world.release(keyCode::command);
    this->world.press(keyCode::option);
    this->world.letEventsHappen();
    callsMeanwhile = calls;
  };
  ASSERT_EQ(this->world.monitor().installModifierHandler(handler), 0);
  this->world.press(keyCode::command);
  EXPECT_TRUE(this->world.eventually([&] { return calls == 3; }));
  EXPECT_EQ(callsMeanwhile, 3);
  this->world.release(keyCode::option);
  EXPECT_TRUE(this->world.eventually([&] { return calls == 4; }));
}

REGISTER_TYPED_TEST_SUITE_P(EventMonitorContract, EachChangeIsToldWithTheStateRightAfterIt,
                            EveryHandlerIsCalled, AHandlerThatRunsTheEventLoopIsCalledFromThere);

} // namespace tavrel
