#import "platform/macos/MacEventQueue.h"

#import "platform/macos/MacEvents.h"
#include "platform/macos/MacTime.h"

namespace tavrel {

std::optional<Event> MacEventQueue::nextEvent(std::uint64_t mask, double until, Dequeue dequeue) {
  @autoreleasepool {
    NSEvent* const event =
        [NSApp nextEventMatchingMask:mask
                           untilDate:[NSDate dateWithTimeIntervalSinceNow:until - secondsNow()]
                              inMode:NSEventTrackingRunLoopMode
                             dequeue:dequeue == Dequeue::yes];
    return event ? std::optional(eventOf(event)) : std::nullopt;
  }
}

std::uint32_t MacEventQueue::currentButtonState() {
  return static_cast<std::uint32_t>(NSEvent.pressedMouseButtons);
}

} // namespace tavrel
