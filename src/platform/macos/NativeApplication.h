#pragma once

#include "platform/Event.h"

#import <AppKit/AppKit.h>

namespace tavrel {
class MacHotKeys;
}

/// The application object of the process: it passes its events to the head of our event stream, and
/// has the properties that the scripting definition names.
@interface TVApplication : NSApplication
/// Not owned; null: events go the system's way alone.
@property(nonatomic) tavrel::EventTarget* head;
/// Not owned; finds the hot key that a release belongs to.
@property(nonatomic) tavrel::MacHotKeys* hotKeys;
/// The system's own handling of an event, if it is the one that was passed to the head last.
- (void)handleEvent:(const tavrel::Event&)event;
@end

namespace tavrel {

/// The end of the event stream, where the system handles each event.
class NativeEvents final : public EventTarget {
public:
  void sendEvent(const Event& event) override {
    [static_cast<::TVApplication*>(NSApplication.sharedApplication) handleEvent:event];
  }
};

} // namespace tavrel
