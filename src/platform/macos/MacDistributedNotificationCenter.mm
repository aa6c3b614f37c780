#import "platform/macos/MacDistributedNotificationCenter.h"

#import "platform/macos/Conversions.h"

#import <AppKit/AppKit.h>

#include <deque>
#include <map>

/// Hands one observer's notifications on.
@interface TVNotificationReceiver : NSObject
@property(nonatomic, copy) void (^action)(NSNotification*);
- (void)receive:(NSNotification*)notification;
@end

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

// Not while a menu is tracked.
NSArray<NSString*>* deliveryModes() {
  return @[ NSDefaultRunLoopMode, NSModalPanelRunLoopMode ];
}

} // namespace

struct MacDistributedNotificationCenter::Deliveries
    : std::enable_shared_from_this<MacDistributedNotificationCenter::Deliveries> {
  struct Observer {
    NotificationHandler handler;
    TVNotificationReceiver* receiver;
  };
  struct Delivery {
    ObserverId observer;
    Notification notification;
  };

  void add(Delivery delivery) {
    waiting.push_back(std::move(delivery));
    const auto self = shared_from_this();
    CFRunLoopPerformBlock(CFRunLoopGetMain(), (__bridge CFArrayRef)deliveryModes(), ^{
      @autoreleasepool {
        self->deliverWaiting();
      }
    });
    CFRunLoopWakeUp(CFRunLoopGetMain());
  }

  void deliverWaiting() {
    if (delivering)
      return;
    delivering = true;
    while (!waiting.empty()) {
      const Delivery next = std::move(waiting.front());
      waiting.pop_front();
      deliver(next);
    }
    delivering = false;
  }

  void deliver(const Delivery& delivery) {
    const auto found = observers.find(delivery.observer);
    if (found == observers.end())
      return;
    const NotificationHandler handler = found->second.handler;
    handler(delivery.notification);
  }

  std::map<ObserverId, Observer> observers;
  std::deque<Delivery> waiting;
  ObserverId last = 0;
  bool delivering = false;
};

MacDistributedNotificationCenter::MacDistributedNotificationCenter()
    : deliveries_(std::make_shared<Deliveries>()) {}

MacDistributedNotificationCenter::~MacDistributedNotificationCenter() {
  while (!deliveries_->observers.empty())
    removeObserver(deliveries_->observers.begin()->first);
}

// An agent is never the active application: by the other behaviours it would hear nothing.
ObserverId MacDistributedNotificationCenter::addObserver(NotificationFilter filter,
                                                         NotificationHandler handler) {
  const ObserverId id = ++deliveries_->last;
  const std::weak_ptr<Deliveries> deliveries = deliveries_;
  TVNotificationReceiver* const receiver = [[TVNotificationReceiver alloc] init];
  receiver.action = ^(NSNotification* notification) {
    if (const auto there = deliveries.lock())
      there->add({id, notificationOf(notification)});
  };
  deliveries_->observers.emplace(id, Deliveries::Observer{std::move(handler), receiver});
  [NSDistributedNotificationCenter.defaultCenter
             addObserver:receiver
                selector:@selector(receive:)
                    name:textOrNil(filter.name)
                  object:textOrNil(filter.object)
      suspensionBehavior:NSNotificationSuspensionBehaviorDeliverImmediately];
  return id;
}

void MacDistributedNotificationCenter::removeObserver(ObserverId observer) {
  const auto found = deliveries_->observers.find(observer);
  if (found == deliveries_->observers.end())
    return;
  [NSDistributedNotificationCenter.defaultCenter removeObserver:found->second.receiver];
  deliveries_->observers.erase(found);
}

void MacDistributedNotificationCenter::post(const Notification& notification) {
  [NSDistributedNotificationCenter.defaultCenter
      postNotificationName:nsString(notification.name)
                    object:textOrNil(notification.object)
                  userInfo:nsPropertyList(PropertyList(notification.userInfo))
        deliverImmediately:YES];
}

} // namespace tavrel
