#pragma once

#include "platform/Clock.h"
#include "platform/EventQueue.h"

#include <gtest/gtest.h>

namespace tavrel {

/// Left mouse-up and left mouse-dragged.
inline constexpr std::uint64_t upOrDragged = 68;

/// What every event queue does. A World has `queue()` and `clock()`, and in its only window, with
/// the left button pressed there already, `drag()` and `release()`.
template <class World> class EventQueueContract : public ::testing::Test {
protected:
  std::optional<Event> next(std::uint64_t mask, Dequeue dequeue) {
    return world.queue().nextEvent(mask, world.clock().now() + 5, dequeue);
  }
  std::optional<Event> waiting(std::uint64_t mask, Dequeue dequeue = Dequeue::no) {
    return world.queue().nextEvent(mask, 0, dequeue);
  }
  static constexpr std::uint64_t only(EventType type) {
    return std::uint64_t{1} << static_cast<unsigned>(type);
  }

  World world;
};

TYPED_TEST_SUITE_P(EventQueueContract);

TYPED_TEST_P(EventQueueContract, NothingWaitsUntilSomethingHappens) {
  EXPECT_FALSE(this->waiting(upOrDragged));
}

TYPED_TEST_P(EventQueueContract, AWaitEndsAtItsTime) {
  const double start = this->world.clock().now();
  EXPECT_FALSE(this->world.queue().nextEvent(upOrDragged, start + 0.05, Dequeue::no));
  EXPECT_GE(this->world.clock().now(), start + 0.05);
}

TYPED_TEST_P(EventQueueContract, AnEventStaysUntilItIsTakenOut) {
  this->world.drag();
  for (const Dequeue dequeue : {Dequeue::no, Dequeue::no, Dequeue::yes}) {
    const auto event = this->next(upOrDragged, dequeue);
    ASSERT_TRUE(event);
    EXPECT_EQ(event->type, EventType::leftMouseDragged);
  }
  EXPECT_FALSE(this->waiting(upOrDragged));
}

TYPED_TEST_P(EventQueueContract, EventsComeInTheirOrder) {
  this->world.drag();
  ASSERT_TRUE(this->next(upOrDragged, Dequeue::no));
  this->world.release();
  const auto drag = this->next(upOrDragged, Dequeue::yes);
  const auto up = this->next(upOrDragged, Dequeue::yes);
  ASSERT_TRUE(drag && up);
  EXPECT_EQ(drag->type, EventType::leftMouseDragged);
  EXPECT_EQ(up->type, EventType::leftMouseUp);
  EXPECT_LE(drag->timestamp, up->timestamp);
}

TYPED_TEST_P(EventQueueContract, OnlyTypesOfTheMaskAreLookedFor) {
  this->world.drag();
  EXPECT_FALSE(this->waiting(this->only(EventType::rightMouseDown)));
  this->world.release();
  const auto up = this->next(this->only(EventType::leftMouseUp), Dequeue::yes);
  ASSERT_TRUE(up);
  EXPECT_EQ(up->type, EventType::leftMouseUp);
}

TYPED_TEST_P(EventQueueContract, ThePrimaryButtonIsTheFirstBit) {
  EXPECT_EQ(this->world.queue().currentButtonState(), 1U);
  this->world.release();
  EXPECT_EQ(this->world.queue().currentButtonState(), 0U);
}

REGISTER_TYPED_TEST_SUITE_P(EventQueueContract, NothingWaitsUntilSomethingHappens,
                            AWaitEndsAtItsTime, AnEventStaysUntilItIsTakenOut,
                            EventsComeInTheirOrder, OnlyTypesOfTheMaskAreLookedFor,
                            ThePrimaryButtonIsTheFirstBit);

} // namespace tavrel
