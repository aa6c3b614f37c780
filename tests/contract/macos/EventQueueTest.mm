#include "contract/EventQueueContract.h"

#import "contract/macos/MacTurns.h"
#include "contract/macos/Skipping.h"
#include "platform/macos/MacClock.h"
#include "platform/macos/MacEventQueue.h"

namespace tavrel {
namespace {

class MacEventQueueWorld {
public:
  MacEventQueueWorld() { skipTests({"ThePrimaryButtonIsTheFirstBit"}, needsHands); }
  ~MacEventQueueWorld() { [NSApp discardEventsMatchingMask:NSEventMaskAny beforeEvent:nil]; }
  MacEventQueueWorld(const MacEventQueueWorld&) = delete;
  MacEventQueueWorld& operator=(const MacEventQueueWorld&) = delete;

  EventQueue& queue() { return adapter_; }
  Clock& clock() { return time_; }
  void drag() { post(NSEventTypeLeftMouseDragged); }
  void release() { post(NSEventTypeLeftMouseUp); }

private:
  void post(NSEventType type) const {
    [NSApp postEvent:[NSEvent mouseEventWithType:type
                                        location:NSMakePoint(20, 20)
                                   modifierFlags:0
                                       timestamp:NSProcessInfo.processInfo.systemUptime
                                    windowNumber:window_.windowNumber
                                         context:nil
                                     eventNumber:0
                                      clickCount:1
                                        pressure:1]
             atStart:NO];
  }

  MacClock time_;
  MacEventQueue adapter_;
  NSWindow* window_ = [[NSWindow alloc] initWithContentRect:NSMakeRect(100, 100, 300, 200)
                                                  styleMask:NSWindowStyleMaskTitled
                                                    backing:NSBackingStoreBuffered
                                                      defer:NO];
};

INSTANTIATE_TYPED_TEST_SUITE_P(Macos, EventQueueContract, MacEventQueueWorld);

} // namespace
} // namespace tavrel
