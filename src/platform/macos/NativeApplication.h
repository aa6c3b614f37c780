#pragma once

#include "platform/Event.h"

#import <AppKit/AppKit.h>

namespace tavrel {
class MacHotKeys;
}

/// The application object of the process: it hands its events to the head of our event stream, and
/// scripts ask it for what the scripting definition names.
@interface TVApplication : NSApplication
/// Not owned; null: events go the system's way alone.
@property(nonatomic) tavrel::EventTarget* head;
/// Not owned; knows which releases have been handled.
@property(nonatomic) tavrel::MacHotKeys* hotKeys;
/// The system's own handling of the event that is being sent.
- (void)handleCurrentEvent;
@end

namespace tavrel {

/// The end of the event stream, where the system handles each event.
class NativeEvents final : public EventTarget {
public:
  void sendEvent(const Event&) override {
    [static_cast<::TVApplication*>(NSApplication.sharedApplication) handleCurrentEvent];
  }
};

} // namespace tavrel
