#include "contract/NotificationCenterContract.h"

#include "platform/memory/MemoryNotificationCenter.h"

namespace tavrel {
namespace {

template <Delivery delivery> struct MemoryNotificationCenterWorld {
  MemoryNotificationCenter adapter{delivery};
  NotificationCenter& center() { return adapter; }
  void deliver() { adapter.deliverPending(); }
};

using Worlds = ::testing::Types<MemoryNotificationCenterWorld<Delivery::atOnce>,
                                MemoryNotificationCenterWorld<Delivery::later>>;
INSTANTIATE_TYPED_TEST_SUITE_P(Memory, NotificationCenterContract, Worlds);

TEST(MemoryNotificationCenter, ALocalOneCallsBeforePostReturns) {
  MemoryNotificationCenter center(Delivery::atOnce);
  int calls = 0;
  (void)center.addObserver({}, [&](const Notification&) { ++calls; });
  center.post({"now", std::nullopt, {}});
  EXPECT_EQ(calls, 1);
}

TEST(MemoryNotificationCenter, ADistributedOneCallsWhenDelivered) {
  MemoryNotificationCenter center(Delivery::later);
  int calls = 0;
  (void)center.addObserver({}, [&](const Notification&) { ++calls; });
  center.post({"later", std::nullopt, {}});
  EXPECT_EQ(calls, 0);
  EXPECT_EQ(center.control.posted.size(), 1U);
  center.deliverPending();
  center.deliverPending();
  EXPECT_EQ(calls, 1);
}

} // namespace
} // namespace tavrel
