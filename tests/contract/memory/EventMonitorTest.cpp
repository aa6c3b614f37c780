#include "contract/EventMonitorContract.h"

#include "platform/memory/MemoryEventMonitor.h"
#include "platform/memory/MemoryKeyboard.h"

#include <functional>

namespace tavrel {
namespace {

struct MemoryEventMonitorWorld {
  MemoryEventMonitor adapter;
  MemoryKeyboard keys;
  EventMonitor& monitor() { return adapter; }
  Keyboard& keyboard() { return keys; }
  bool eventually(const std::function<bool()>& condition) { return condition(); }
  void letEventsHappen() {}

  void press(std::uint16_t key) {
    keys.control.eventModifiers |= bitOf(key);
    adapter.modifiersChanged(0);
  }
  void release(std::uint16_t key) {
    keys.control.eventModifiers &= ~bitOf(key);
    adapter.modifiersChanged(0);
  }

private:
  static std::uint32_t bitOf(std::uint16_t key) {
    if (key == keyCode::shift)
      return eventModifier::shift;
    return key == keyCode::command ? eventModifier::command : eventModifier::option;
  }
};

INSTANTIATE_TYPED_TEST_SUITE_P(Memory, EventMonitorContract, MemoryEventMonitorWorld);

TEST(MemoryEventMonitor, InstallingCanFail) {
  MemoryEventMonitor monitor;
  monitor.control.status = -1;
  EXPECT_EQ(monitor.installModifierHandler([](double) {}), -1);
  EXPECT_TRUE(monitor.control.handlers.empty());
}

} // namespace
} // namespace tavrel
