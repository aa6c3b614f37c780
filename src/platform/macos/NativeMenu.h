#pragma once

#include "platform/common/MenuTracking.h"

#import <AppKit/AppKit.h>

#include <memory>

/// A menu of ours as the system shows it: filled each time it is about to open.
@interface TVNativeMenu : NSMenu <NSMenuDelegate>
/// The tracking must outlive the menu.
+ (instancetype)menuOf:(std::shared_ptr<tavrel::Menu>)menu tracking:(tavrel::MenuTracking*)tracking;
/// What is to be done when this menu, an outermost one, has closed.
@property(nonatomic, copy) void (^whenClosed)(void);
/// Drops the reference to our menu: its delegate is not called any more.
- (void)detach;
@end
