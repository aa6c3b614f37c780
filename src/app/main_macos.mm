#include "app/CommandLine.h"
#include "app/TVApplication.h"
#include "app/TVController.h"
#include "platform/macos/MacAccessibility.h"
#include "platform/macos/MacDesktop.h"
#import "platform/macos/NativeApplication.h"

#include <cstdio>
#include <optional>

/// What the system tells of the process's life, handed to the controller.
@interface TVApplicationDelegate : NSObject <NSApplicationDelegate> {
@public
  std::optional<tavrel::TVController> controller;
}
@end

@implementation TVApplicationDelegate

- (void)applicationWillFinishLaunching:(NSNotification*)notification {
  (void)notification;
  controller->applicationWillFinishLaunching();
}

- (void)applicationDidFinishLaunching:(NSNotification*)notification {
  (void)notification;
  tavrel::MacAccessibility::askForPermission();
  controller->applicationDidFinishLaunching();
}

// The process ends without coming back to `main`.
- (void)applicationWillTerminate:(NSNotification*)notification {
  (void)notification;
  controller.reset();
}

@end

namespace {

void run() {
  TVApplication* const native = [TVApplication sharedApplication];
  tavrel::MacDesktop desktop;
  tavrel::installPlatform(desktop.ports());
  tavrel::NativeEvents end;
  tavrel::TVApplication application(end);
  TVApplicationDelegate* const delegate = [TVApplicationDelegate new];
  delegate->controller.emplace(application);
  native.head = &application;
  native.hotKeys = &desktop.hotKeys();
  native.delegate = delegate;
  [native run];
}

} // namespace

int main(int argc, char** argv) {
  const std::span<const char* const> arguments(argv + 1, static_cast<std::size_t>(argc - 1));
  @autoreleasepool {
    switch (tavrel::commandFromArguments(arguments)) {
    case tavrel::Command::help:
      std::fputs(tavrel::helpText().c_str(), stdout);
      return 0;
    case tavrel::Command::version:
      std::puts("tavrel " TAVREL_VERSION);
      return 0;
    case tavrel::Command::misuse: // the system passes arguments of its own
    case tavrel::Command::start:
      run();
      return 0;
    }
  }
}
