#include "contract/HotKeysContract.h"

#import "contract/macos/MacTurns.h"
#include "contract/macos/PostedKeys.h"
#include "contract/macos/Skipping.h"
#include "platform/macos/MacHotKeys.h"

namespace tavrel {
namespace {

class MacHotKeysWorld {
public:
  MacHotKeysWorld() {
    skipTests({"ARefusedHotKeyDisturbsNoOther"}, "the system refuses none for other programs");
    if (!mayPostEvents())
      skipTests({"AReleasedHotKeyIsASystemDefinedEvent", "EachCombinationHasAReferenceOfItsOwn",
                 "AHotKeyRegisteredAgainWorksUnderANewReference"},
                needsHands);
  }
  HotKeys& hotKeys() { return adapter_; }
  void press(std::uint32_t key, std::uint32_t modifiers) {
    if (!mayPostEvents()) // then the test expects that nothing comes
      return;
    postKey(key, KeyGoes::down, modifiers);
    postKey(key, KeyGoes::up, modifiers);
  }
  void settle() { letEventsHappen(0.3); }
  void takeForAnotherProgram(std::uint32_t, std::uint32_t) {}

private:
  MacHotKeys adapter_;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Macos, HotKeysContract, MacHotKeysWorld);

TEST(MacHotKeys, AReferenceOfTheSystemsThatIsNoneOfOursIsNoNews) {
  MacHotKeys hotKeys;
  const auto key = hotKeys.registerHotKey(keyOne, eventModifier::command, {0x5456524D, 1});
  EXPECT_FALSE(hotKeys.newsOf(0));
  EXPECT_FALSE(hotKeys.newsOf(key.reference));
}

} // namespace
} // namespace tavrel
