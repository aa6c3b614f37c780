#include "app/CommandLine.h"
#include "controller/TVApplication.h"
#include "controller/TVController.h"
#include "platform/macos/MacAccessibility.h"
#include "platform/macos/MacDesktop.h"
#import "platform/macos/NativeApplication.h"

#include <iostream>
#include <memory>
#include <optional>
#include <span>

namespace {

/// Everything of ours that lives as long as the process, the controller from the start to the end.
struct Running {
  tavrel::MacDesktop desktop;
  tavrel::NativeEvents end;
  tavrel::TVApplication application{end};
  std::optional<tavrel::TVController> controller;
};

} // namespace

/// What the system tells of the process's life, handed to the controller.
@interface TVApplicationDelegate : NSObject <NSApplicationDelegate> {
@public
  std::unique_ptr<Running> running;
}
@end

@implementation TVApplicationDelegate

- (void)applicationWillFinishLaunching:(NSNotification*)notification {
  (void)notification;
  running->controller->applicationWillFinishLaunching();
}

- (void)applicationDidFinishLaunching:(NSNotification*)notification {
  (void)notification;
  tavrel::MacAccessibility::askForPermission();
  running->controller->applicationDidFinishLaunching();
}

// The process ends without coming back to `main`: what is still to be written, and what the session
// keeps of ours, is seen to here. Nothing of the core is asked from now on.
- (void)applicationWillTerminate:(NSNotification*)notification {
  (void)notification;
  TVApplication* const native = static_cast<TVApplication*>(NSApplication.sharedApplication);
  native.head = nullptr;
  native.hotKeys = nullptr;
  running.reset();
}

@end

namespace {

void run() {
  TVApplication* const native = [TVApplication sharedApplication];
  NS_VALID_UNTIL_END_OF_SCOPE TVApplicationDelegate* const delegate = [TVApplicationDelegate new];
  delegate->running = std::make_unique<Running>();
  Running& running = *delegate->running;
  tavrel::installPlatform(running.desktop.ports());
  running.controller.emplace(running.application);
  native.head = &running.application;
  native.hotKeys = &running.desktop.hotKeys();
  native.delegate = delegate; // not kept there
  [native run];
}

} // namespace

int main(int argc, char** argv) {
  const std::span<const char* const> arguments(argv + 1, static_cast<std::size_t>(argc - 1));
  @autoreleasepool {
    switch (tavrel::commandFromArguments(arguments)) {
    case tavrel::Command::help:
      std::cout << tavrel::helpText();
      return 0;
    case tavrel::Command::version:
      std::cout << "tavrel " TAVREL_VERSION "\n";
      return 0;
    case tavrel::Command::misuse: // the system passes arguments of its own
    case tavrel::Command::start:
      run();
      return 0;
    }
  }
}
