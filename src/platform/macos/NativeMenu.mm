#import "platform/macos/NativeMenu.h"

#include "platform/common/MenuRows.h"
#import "platform/macos/Conversions.h"
#import "platform/macos/MacImage.h"

/// Keeps the entry of ours that a native one stands for.
@interface TVMenuEntry : NSObject {
@public
  std::shared_ptr<tavrel::MenuItem> item;
}
@end

@implementation TVMenuEntry
@end

@implementation TVNativeMenu {
  std::shared_ptr<tavrel::Menu> _menu;
  tavrel::MenuTracking* _tracking;
  BOOL _isOpen;
}

+ (instancetype)menuOf:(std::shared_ptr<tavrel::Menu>)menu
              tracking:(tavrel::MenuTracking*)tracking {
  TVNativeMenu* const made = [[TVNativeMenu alloc] initWithTitle:tavrel::nsString(menu->title)];
  made->_menu = std::move(menu);
  made->_tracking = tracking;
  made.delegate = made;
  made.autoenablesItems = NO;
  return made;
}

- (void)detach {
  if (_menu)
    _tracking->forget(*_menu);
  _menu = nullptr;
}

// The system calls this once more for a menu that is open already.
- (void)menuNeedsUpdate:(NSMenu*)menu {
  (void)menu;
  const auto ours = _menu;
  if (_isOpen || !ours)
    return;
  @autoreleasepool {
    _tracking->update(ours);
    [self removeAllItems];
    for (const tavrel::NativeRow& row : tavrel::nativeRows(*ours))
      [self addItem:[self itemForRow:row]];
  }
}

- (void)menuWillOpen:(NSMenu*)menu {
  (void)menu;
  _isOpen = YES;
  if (_menu)
    _tracking->opened(*_menu);
}

- (void)menuDidClose:(NSMenu*)menu {
  (void)menu;
  _isOpen = NO;
  @autoreleasepool {
    if (_menu)
      _tracking->closed(*_menu);
    if (self.whenClosed)
      self.whenClosed();
  }
}

// Key equivalents work in an open menu only: the system's search for one must not fill a menu.
- (BOOL)menuHasKeyEquivalent:(NSMenu*)menu
                    forEvent:(NSEvent*)event
                      target:(id*)target
                      action:(SEL*)action {
  (void)menu, (void)event, (void)target, (void)action;
  return NO;
}

- (NSMenuItem*)itemForRow:(const tavrel::NativeRow&)row {
  const tavrel::MenuItem& ours = *row.item;
  if (ours.isSeparator)
    return [NSMenuItem separatorItem];
  NSMenuItem* const made = [[NSMenuItem alloc] initWithTitle:tavrel::nsString(ours.title)
                                                      action:nil
                                               keyEquivalent:tavrel::nsString(ours.keyEquivalent)];
  made.keyEquivalentModifierMask = ours.keyEquivalentModifierMask; // else it is Command
  if (ours.submenu) // before the action, which it would take away
    made.submenu = [TVNativeMenu menuOf:ours.submenu tracking:_tracking];
  [self setActionOf:made for:row.item];
  made.state =
      ours.state == tavrel::MenuItemState::on ? NSControlStateValueOn : NSControlStateValueOff;
  made.image = ours.image ? tavrel::nsImage(*ours.image) : nil;
  made.indentationLevel = MAX(0, MIN(ours.indentation, 15));
  made.alternate = row.role == tavrel::RowRole::alternate;
  return made;
}

- (void)setActionOf:(NSMenuItem*)made for:(const std::shared_ptr<tavrel::MenuItem>&)ours {
  const BOOL acts = ours->action != tavrel::MenuAction::none;
  made.enabled = ours->enabled && (acts || ours->submenu);
  if (!acts)
    return;
  TVMenuEntry* const entry = [TVMenuEntry new];
  entry->item = ours;
  made.representedObject = entry;
  made.target = self;
  made.action = @selector(choose:);
}

- (void)choose:(NSMenuItem*)sender {
  @autoreleasepool {
    TVMenuEntry* const entry = sender.representedObject;
    if ([entry isKindOfClass:TVMenuEntry.class])
      _tracking->chosen(entry->item);
  }
}

@end
