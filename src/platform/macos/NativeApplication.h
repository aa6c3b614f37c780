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
/// Not owned; knows what a release of a hot key is of.
@property(nonatomic) tavrel::MacHotKeys* hotKeys;
/// The system's own handling of an event, where it is the one that the head was told last.
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
