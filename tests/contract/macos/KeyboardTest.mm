#include "contract/KeyboardContract.h"

#import "contract/macos/MacTurns.h"
#include "contract/macos/PostedKeys.h"
#include "contract/macos/Skipping.h"
#import "platform/macos/Conversions.h"
#include "platform/macos/MacKeyboard.h"

#import <Carbon/Carbon.h>

namespace tavrel {
namespace {

using Source = CFOwned<TISInputSourceRef>;

class MacKeyboardWorld {
public:
  MacKeyboardWorld() {
    if (!mayPostEvents())
      skipTests({"NothingIsDownUntilAKeyIs", "ModifiersAreKeysAndModifiers"}, needsHands);
  }
  ~MacKeyboardWorld() { TISSelectInputSource(before_.get()); }
  MacKeyboardWorld(const MacKeyboardWorld&) = delete;
  MacKeyboardWorld& operator=(const MacKeyboardWorld&) = delete;

  Keyboard& keyboard() { return adapter_; }
  void press(std::uint16_t key) { post(key, KeyGoes::down); }
  void release(std::uint16_t key) { post(key, KeyGoes::up); }
  void use(const std::string& layout) {
    const std::string name = layout == "us" ? "US" : "Dvorak";
    NSDictionary* const wanted =
        @{(__bridge NSString*)kTISPropertyInputSourceID : nsString("com.apple.keylayout." + name)};
    NSArray* const found =
        CFBridgingRelease(TISCreateInputSourceList((__bridge CFDictionaryRef)wanted, true));
    ASSERT_EQ(found.count, 1U);
    auto const source = (__bridge TISInputSourceRef)found.firstObject;
    TISEnableInputSource(source);
    TISSelectInputSource(source);
    letEventsHappen(0.1);
  }

private:
  void post(std::uint16_t key, KeyGoes goes) {
    postKey(key, goes);
    letEventsHappen(0.1);
  }

  MacKeyboard adapter_;
  Source before_{TISCopyCurrentKeyboardInputSource()};
};

INSTANTIATE_TYPED_TEST_SUITE_P(Macos, KeyboardContract, MacKeyboardWorld);

} // namespace
} // namespace tavrel
