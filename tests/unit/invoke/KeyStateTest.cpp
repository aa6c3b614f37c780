#include "support/CoreTest.h"

#include "invoke/KeyState.h"

namespace tavrel {
namespace {

class KeyState : public CoreTest {
protected:
  KeyState() {
    table.keyCodeForChar.fill(-1);
    table.keyCodeForChar['a'] = 0;
    table.keyCodeForChar['b'] = 11;
  }
  Ascii2KeyCodeTable table;
};

TEST_F(KeyState, EachModifierHasItsOwnKey) {
  const auto heldAlone = [this](std::uint16_t key) {
    desktop.keyboard.control.down = {};
    hold(key);
    return std::vector{CheckCommandKey(), CheckShiftKey(), CheckOptionKey()};
  };
  EXPECT_THAT(heldAlone(55), ::testing::ElementsAre(true, false, false));
  EXPECT_THAT(heldAlone(56), ::testing::ElementsAre(false, true, false));
  EXPECT_THAT(heldAlone(58), ::testing::ElementsAre(false, false, true));
  for (const std::uint16_t other : std::vector<std::uint16_t>{57, 59, 63})
    EXPECT_THAT(heldAlone(other), ::testing::Each(false));
}

TEST_F(KeyState, AnyKeyCountsModifiersIncluded) {
  EXPECT_FALSE(isKeyPreessed());
  hold(keyCode::capsLock);
  EXPECT_TRUE(isKeyPreessed());
}

TEST_F(KeyState, AKeyIsABitOfTheSnapshot) {
  desktop.keyboard.control.down.bytes[1] = 0x04;
  EXPECT_TRUE(TestForKeyDown(10));
  EXPECT_FALSE(TestForKeyDown(9));
  EXPECT_FALSE(TestForKeyDown(128));
}

TEST_F(KeyState, ACharacterIsTheKeyThatTypesIt) {
  hold(11);
  EXPECT_TRUE(TestForAsciiKeyDown(table, 'b'));
  EXPECT_FALSE(TestForAsciiKeyDown(table, 'a'));
  EXPECT_FALSE(TestForAsciiKeyDown(table, 'z')) << "no key types it";
  EXPECT_FALSE(TestForAsciiKeyDown(table, 300));
}

TEST_F(KeyState, EveryKeyOfAnArrayMustBeDown) {
  hold(0);
  hold(11);
  const std::uint16_t both[]{0, 11};
  const std::uint16_t tooMany[]{0, 12};
  EXPECT_TRUE(TestForArrayOfKeysDown(both));
  EXPECT_FALSE(TestForArrayOfKeysDown(tooMany));
  const std::uint8_t characters[]{'a', 'b'};
  EXPECT_TRUE(TestForArrayOfAsciiKeysDown(table, characters));
  const std::uint8_t untyped[]{'a', 'z'};
  EXPECT_FALSE(TestForArrayOfAsciiKeysDown(table, untyped)) << "no key types z";
}

TEST_F(KeyState, ATableThatNamesKeysBeyondTheLastFindsNoneDown) {
  desktop.keyboard.control.down.bytes.fill(0xFF);
  table.keyCodeForChar['a'] = 128;
  const std::uint8_t characters[]{'a'};
  EXPECT_FALSE(TestForAsciiKeyDown(table, 'a'));
  EXPECT_FALSE(TestForArrayOfAsciiKeysDown(table, characters));
  EXPECT_FALSE(TestForMultipleAsciiKeysDown(table, {'a'}));
}

TEST_F(KeyState, NoKeysAtAllAreNotDown) {
  hold(0);
  EXPECT_FALSE(TestForArrayOfKeysDown({}));
  EXPECT_FALSE(TestForArrayOfAsciiKeysDown(table, {}));
  EXPECT_FALSE(TestForMultipleKeysDown({}));
  EXPECT_FALSE(TestForMultipleAsciiKeysDown(table, {}));
}

TEST_F(KeyState, SeveralKeysCanBeNamed) {
  hold(0);
  hold(11);
  EXPECT_TRUE(TestForMultipleKeysDown({0, 11}));
  EXPECT_FALSE(TestForMultipleKeysDown({0, 200}));
  EXPECT_TRUE(TestForMultipleAsciiKeysDown(table, {'a', 'b'}));
  EXPECT_FALSE(TestForMultipleAsciiKeysDown(table, {'a', 'q'}));
  EXPECT_FALSE(TestForMultipleAsciiKeysDown(table, {'a', 300}));
}

} // namespace
} // namespace tavrel
