#import "platform/macos/MacAlerts.h"

#include "platform/AlertButtons.h"
#import "platform/macos/Conversions.h"

#import <AppKit/AppKit.h>

namespace tavrel {

namespace {

void addAlertButton(NSAlert* alert, const AlertButton& button) {
  NSButton* const added = [alert addButtonWithTitle:nsString(button.title)];
  if (button.answer == AlertAnswer::alternate)
    added.keyEquivalent = @"\033";
}

} // namespace

AlertAnswer MacAlerts::run(const AlertPanel& panel) {
  @autoreleasepool {
    const std::vector<AlertButton> buttons = alertButtons(panel);
    NSAlert* const alert = [[NSAlert alloc] init];
    alert.messageText = nsString(panel.title);
    alert.informativeText = nsString(panel.message);
    for (const AlertButton& button : buttons)
      addAlertButton(alert, button);
    [NSApplication.sharedApplication activateIgnoringOtherApps:YES];
    const NSInteger chosen = [alert runModal] - NSAlertFirstButtonReturn;
    if (chosen < 0 || chosen >= static_cast<NSInteger>(buttons.size()))
      return answerWithoutButton(panel);
    return buttons[static_cast<std::size_t>(chosen)].answer;
  }
}

} // namespace tavrel
