#import "platform/macos/NotificationReceiver.h"

#import "platform/macos/Conversions.h"

@implementation TVNotificationReceiver

- (void)receive:(NSNotification*)notification {
  @autoreleasepool {
    self.action(notification);
  }
}

@end

namespace tavrel {

namespace {

NSString* textOrNil(const std::optional<std::string>& text) {
  return text ? nsString(*text) : nil;
}

Notification notificationOf(NSNotification* notification) {
  Notification result{stringOf(notification.name), std::nullopt,
                      dictionaryOf(notification.userInfo)};
  if ([notification.object isKindOfClass:NSString.class])
    result.object = stringOf((NSString*)notification.object);
  return result;
}

} // namespace

// An agent is never the active application, and the other behaviours deliver to that one only.
TVNotificationReceiver* listenFor(const NotificationFilter& filter,
                                  void (^hear)(const Notification&)) {
  TVNotificationReceiver* const receiver = [[TVNotificationReceiver alloc] init];
  receiver.action = ^(NSNotification* notification) {
    hear(notificationOf(notification));
  };
  [NSDistributedNotificationCenter.defaultCenter
             addObserver:receiver
                selector:@selector(receive:)
                    name:textOrNil(filter.name)
                  object:textOrNil(filter.object)
      suspensionBehavior:NSNotificationSuspensionBehaviorDeliverImmediately];
  return receiver;
}

} // namespace tavrel
