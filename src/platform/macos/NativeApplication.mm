#import "platform/macos/NativeApplication.h"

#import "platform/macos/Conversions.h"
#import "platform/macos/MacEvents.h"
#import "platform/macos/MacHotKeys.h"
#import "platform/macos/MacScripting.h"

@implementation TVApplication {
  NSEvent* _sending;
}

- (void)sendEvent:(NSEvent*)event {
  if (!self.head || ![self isNews:event])
    return [super sendEvent:event];
  @autoreleasepool {
    NSEvent* const before = _sending; // a menu may be open, and its loop send events
    _sending = event;
    self.head->sendEvent(tavrel::eventOf(event));
    _sending = before;
  }
}

- (void)handleCurrentEvent {
  if (NSEvent* const event = _sending)
    [super sendEvent:event];
}

// A release of a hot key may have come as an event of the other kind already.
- (BOOL)isNews:(NSEvent*)event {
  if (event.type != NSEventTypeSystemDefined || event.subtype != tavrel::hotKeyReleasedSubtype)
    return YES;
  return !self.hotKeys || self.hotKeys->isNews(static_cast<std::uint64_t>(event.data1));
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
