#import "platform/macos/MacAlerts.h"

#include "platform/common/AlertButtons.h"
#import "platform/macos/Conversions.h"

#import <AppKit/AppKit.h>

namespace tavrel {

namespace {

constexpr unsigned short escapeKey = 53;

// A panel handles the Escape key by itself only when a button is titled "Cancel".
id escapeEndsPanel() {
  return [NSEvent addLocalMonitorForEventsMatchingMask:NSEventMaskKeyDown
                                               handler:^NSEvent*(NSEvent* event) {
                                                 if (event.keyCode != escapeKey)
                                                   return event;
                                                 [NSApp stopModalWithCode:NSModalResponseCancel];
                                                 return nil;
                                               }];
}

} // namespace

AlertAnswer MacAlerts::run(const AlertPanel& panel) {
  @autoreleasepool {
    const std::vector<AlertButton> buttons = alertButtons(panel);
    NSAlert* const alert = [[NSAlert alloc] init];
    alert.messageText = nsString(panel.title);
    alert.informativeText = nsString(panel.message);
    for (const AlertButton& button : buttons)
      [alert addButtonWithTitle:nsString(button.title)];
    [NSApplication.sharedApplication activateIgnoringOtherApps:YES];
    id const escape = escapeEndsPanel();
    const NSInteger chosen = [alert runModal] - NSAlertFirstButtonReturn;
    [NSEvent removeMonitor:escape];
    [alert.window orderOut:nil];
    if (chosen < 0 || chosen >= static_cast<NSInteger>(buttons.size()))
      return answerWithoutButton(panel);
    return buttons[static_cast<std::size_t>(chosen)].answer;
  }
}

} // namespace tavrel
