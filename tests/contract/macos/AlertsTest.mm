#include "contract/AlertsContract.h"

#import "platform/macos/Conversions.h"
#include "platform/macos/MacAlerts.h"

#import <AppKit/AppKit.h>

namespace tavrel {
namespace {

NSButton* buttonCalled(NSView* view, NSString* title) {
  if ([view isKindOfClass:NSButton.class] && [((NSButton*)view).title isEqualToString:title])
    return (NSButton*)view;
  for (NSView* each in view.subviews)
    if (NSButton* const found = buttonCalled(each, title))
      return found;
  return nil;
}

void pressButton(const std::string& title) {
  NSButton* const button = buttonCalled(NSApp.modalWindow.contentView, nsString(title));
  EXPECT_TRUE(button != nil) << title;
  button ? [button performClick:nil] : [NSApp abortModal];
}

void typeEscape() {
  [NSApp postEvent:[NSEvent keyEventWithType:NSEventTypeKeyDown
                                          location:NSZeroPoint
                                     modifierFlags:0
                                         timestamp:NSProcessInfo.processInfo.systemUptime
                                      windowNumber:NSApp.modalWindow.windowNumber
                                           context:nil
                                        characters:@"\033"
                       charactersIgnoringModifiers:@"\033"
                                         isARepeat:NO
                                           keyCode:53]
           atStart:NO];
}

void answerPanel(const AlertPanel& panel, AlertDeed deed) {
  switch (deed) {
  case AlertDeed::pressDefault:
    return pressButton(panel.defaultButton);
  case AlertDeed::pressAlternate:
    return pressButton(panel.alternateButton);
  case AlertDeed::pressOther:
    return pressButton(panel.otherButton);
  case AlertDeed::escape:
    return typeEscape();
  case AlertDeed::close:
    return [NSApp abortModal];
  }
}

struct MacAlertsWorld {
  AlertAnswer answer(const AlertPanel& panel, AlertDeed deed) {
    NSTimer* const hand = [NSTimer timerWithTimeInterval:0.2
                                                 repeats:NO
                                                   block:^(NSTimer*) {
                                                     answerPanel(panel, deed);
                                                   }];
    [NSRunLoop.mainRunLoop addTimer:hand forMode:NSModalPanelRunLoopMode];
    return MacAlerts().run(panel);
  }
};

INSTANTIATE_TYPED_TEST_SUITE_P(Macos, AlertsContract, MacAlertsWorld);

} // namespace
} // namespace tavrel
