#pragma once

#include "platform/NotificationCenter.h"

#import <Foundation/Foundation.h>

/// Hands one observer's notifications on.
@interface TVNotificationReceiver : NSObject
@property(nonatomic, copy) void (^action)(NSNotification*);
- (void)receive:(NSNotification*)notification;
@end

namespace tavrel {

/// Has notifications between processes handed to a block, until the receiver is taken out of the
/// system's center.
[[nodiscard]] TVNotificationReceiver* listenFor(const NotificationFilter& filter,
                                                void (^hear)(const Notification&));

} // namespace tavrel
