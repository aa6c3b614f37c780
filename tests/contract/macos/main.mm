#import <AppKit/AppKit.h>

#include <gtest/gtest.h>

int main(int argc, char** argv) {
  @autoreleasepool {
    ::testing::InitGoogleTest(&argc, argv);
    [NSApplication sharedApplication].activationPolicy = NSApplicationActivationPolicyAccessory;
    [NSApp finishLaunching];
    return RUN_ALL_TESTS();
  }
}
