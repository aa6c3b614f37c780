#import "platform/macos/MacDistributedNotificationCenter.h"

#include "platform/common/NotificationNames.h"
#import "platform/macos/Conversions.h"
#import "platform/macos/NotificationReceiver.h"

#import <AppKit/AppKit.h>

#include <algorithm>
#include <deque>
#include <map>

namespace tavrel {

namespace {

// Not while a menu is tracked.
NSArray<NSString*>* deliveryModes() {
  return @[ NSDefaultRunLoopMode, NSModalPanelRunLoopMode ];
}

} // namespace

struct MacDistributedNotificationCenter::Deliveries
    : std::enable_shared_from_this<MacDistributedNotificationCenter::Deliveries> {
  struct Observer {
    NotificationHandler handler;
    std::vector<TVNotificationReceiver*> receivers;
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

// An observer without a name gets nothing or everything, depending on the system: so a notification
// that is observed by name, too, is delivered by name only.
ObserverId MacDistributedNotificationCenter::addObserver(NotificationFilter filter,
                                                         NotificationHandler handler) {
  const ObserverId id = ++deliveries_->last;
  const std::weak_ptr<Deliveries> deliveries = deliveries_;
  const auto hear = ^(const Notification& notification) {
    if (const auto there = deliveries.lock())
      there->add({id, notification});
  };
  const std::vector<std::string> names = filter.object && !filter.name
                                             ? knownNotificationNames(*filter.object)
                                             : std::vector<std::string>();
  Deliveries::Observer observer{std::move(handler), {}};
  observer.receivers.push_back(listenFor(filter, ^(const Notification& notification) {
    if (std::ranges::find(names, notification.name) == names.end())
      hear(notification);
  }));
  for (const std::string& name : names)
    observer.receivers.push_back(listenFor({name, filter.object}, hear));
  deliveries_->observers.emplace(id, std::move(observer));
  return id;
}

void MacDistributedNotificationCenter::removeObserver(ObserverId observer) {
  const auto found = deliveries_->observers.find(observer);
  if (found == deliveries_->observers.end())
    return;
  for (TVNotificationReceiver* each : found->second.receivers)
    [NSDistributedNotificationCenter.defaultCenter removeObserver:each];
  deliveries_->observers.erase(found);
}

void MacDistributedNotificationCenter::post(const Notification& notification) {
  [NSDistributedNotificationCenter.defaultCenter
      postNotificationName:nsString(notification.name)
                    object:notification.object ? nsString(*notification.object) : nil
                  userInfo:nsPropertyList(PropertyList(notification.userInfo))
        deliverImmediately:YES];
}

} // namespace tavrel
