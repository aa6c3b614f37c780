#import "platform/macos/MacEvents.h"

#include "base/Utf8.h"
#import "platform/macos/Conversions.h"
#include "platform/macos/MacTime.h"

namespace tavrel {

namespace {

constexpr NSEventMask pressMask = NSEventMaskLeftMouseDown | NSEventMaskLeftMouseUp |
                                  NSEventMaskRightMouseDown | NSEventMaskRightMouseUp |
                                  NSEventMaskOtherMouseDown | NSEventMaskOtherMouseUp;
constexpr NSEventMask dragMask =
    NSEventMaskLeftMouseDragged | NSEventMaskRightMouseDragged | NSEventMaskOtherMouseDragged;
constexpr NSEventMask keyMask = NSEventMaskKeyDown | NSEventMaskKeyUp;
constexpr NSEventMask subtypeMask = NSEventMaskSystemDefined | NSEventMaskApplicationDefined;

bool isOneOf(NSEventMask mask, NSEvent* event) {
  return event.type < 64 && (mask >> event.type & 1U) != 0;
}

void setMouse(Event& made, NSEvent* event) {
  made.eventNumber = static_cast<std::int32_t>(event.eventNumber);
  made.clickCount = static_cast<std::int32_t>(event.clickCount);
  made.pressure = event.pressure;
}

void setKey(Event& made, NSEvent* event) {
  made.characters = utf16FromUtf8(stringOf(event.characters));
  made.isRepeat = event.isARepeat;
}

// The system counts from its start.
double secondsOf(NSEvent* event) {
  const double age = NSProcessInfo.processInfo.systemUptime - event.timestamp;
  return secondsNow() - age;
}

} // namespace

Event eventOf(NSEvent* event) {
  Event made;
  made.type = static_cast<EventType>(event.type);
  made.location = pointOf(event.locationInWindow);
  made.modifierFlags = static_cast<std::uint32_t>(event.modifierFlags &
                                                  NSEventModifierFlagDeviceIndependentFlagsMask);
  made.timestamp = secondsOf(event);
  made.windowNumber = static_cast<std::int32_t>(event.windowNumber);
  if (isOneOf(pressMask | dragMask, event))
    setMouse(made, event);
  if (isOneOf(keyMask, event))
    setKey(made, event);
  if (isOneOf(keyMask | NSEventMaskFlagsChanged, event))
    made.keyCode = event.keyCode;
  if (isOneOf(subtypeMask, event)) {
    made.subtype = event.subtype;
    made.data1 = static_cast<std::uint64_t>(event.data1);
  }
  return made;
}

} // namespace tavrel
