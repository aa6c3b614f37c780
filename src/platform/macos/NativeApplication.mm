#import "platform/macos/NativeApplication.h"

#import "platform/macos/Conversions.h"
#import "platform/macos/MacEvents.h"
#import "platform/macos/MacHotKeys.h"
#import "platform/macos/MacScripting.h"

namespace {

/// An event that our event stream handles now, and its converted form.
struct EventOnItsWay {
  NSEvent* event;
  const tavrel::Event* told;
};

bool isHotKeyRelease(const tavrel::Event& event) {
  return event.type == tavrel::EventType::systemDefined &&
         event.subtype == tavrel::hotKeyReleasedSubtype;
}

} // namespace

@implementation TVApplication {
  EventOnItsWay _onItsWay;
}

- (void)sendEvent:(NSEvent*)event {
  tavrel::Event told = tavrel::eventOf(event);
  if (!self.head || ![self isNews:told])
    return [super sendEvent:event];
  @autoreleasepool {
    const EventOnItsWay before = _onItsWay; // a menu may be open, and its loop send events
    _onItsWay = {event, &told};
    self.head->sendEvent(told);
    _onItsWay = before;
  }
}

// What reaches the end of the stream may have come from elsewhere, as a release of a hot key does.
- (void)handleEvent:(const tavrel::Event&)event {
  if (&event == _onItsWay.told)
    [super sendEvent:_onItsWay.event];
}

// A release of a hot key may have come as an event of the other kind already.
- (BOOL)isNews:(tavrel::Event&)event {
  if (!self.hotKeys || !isHotKeyRelease(event))
    return YES;
  const auto reference = self.hotKeys->newsOf(event.data1);
  event.data1 = reference.value_or(0);
  return reference.has_value();
}

- (NSString*)hostAppName {
  auto* const ours = tavrel::MacScripting::application();
  const auto name = ours ? ours->hostAppName() : std::nullopt;
  return name ? tavrel::nsString(*name) : nil;
}

- (NSString*)currentLocalization {
  auto* const ours = tavrel::MacScripting::application();
  return ours ? tavrel::nsString(ours->currentLocalization()) : nil;
}

- (NSString*)longVersion {
  auto* const ours = tavrel::MacScripting::application();
  const auto version = ours ? ours->longVersion() : std::nullopt;
  return version ? tavrel::nsString(*version) : nil;
}

- (id)contextObject {
  auto* const ours = tavrel::MacScripting::application();
  const auto object = ours ? ours->contextObject() : std::nullopt;
  return object ? tavrel::nsPropertyList(*object) : nil;
}

- (id)handleCopyToClipboardScriptCommand:(NSScriptCommand*)command {
  (void)command;
  if (auto* const ours = tavrel::MacScripting::application())
    ours->handleCopyToClipboardScriptCommand();
  return nil;
}

- (id)handleConvertScriptCommand:(NSScriptCommand*)command {
  auto* const ours = tavrel::MacScripting::application();
  if (!ours)
    return nil;
  return tavrel::nsPropertyList(
      ours->handleConvertScriptCommand(tavrel::dictionaryOf(command.evaluatedArguments)));
}

- (id)handleUninstallScriptCommand:(NSScriptCommand*)command {
  (void)command;
  if (auto* const ours = tavrel::MacScripting::application())
    ours->handleUninstallScriptCommand();
  return nil;
}

@end
