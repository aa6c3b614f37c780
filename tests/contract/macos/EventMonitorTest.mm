#include "contract/EventMonitorContract.h"

#import "contract/macos/MacTurns.h"
#include "contract/macos/PostedKeys.h"
#include "contract/macos/Skipping.h"
#include "platform/macos/MacEventMonitor.h"
#include "platform/macos/MacKeyboard.h"

namespace tavrel {
namespace {

struct MacEventMonitorWorld {
  MacEventMonitorWorld() {
    if (!mayPostEvents())
      skipTest(needsHands);
  }
  EventMonitor& monitor() { return adapter; }
  Keyboard& keyboard() { return keys; }
  void press(std::uint16_t key) { postKey(key, KeyGoes::down); }
  void release(std::uint16_t key) { postKey(key, KeyGoes::up); }
  bool eventually(const std::function<bool()>& condition) { return tavrel::eventually(condition); }
  void letEventsHappen() { tavrel::letEventsHappen(0.1); }

  MacEventMonitor adapter;
  MacKeyboard keys;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Macos, EventMonitorContract, MacEventMonitorWorld);

} // namespace
} // namespace tavrel
