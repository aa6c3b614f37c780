#include "platform/linux/x11/keystrokes/HeldModifiers.h"

#include <gmock/gmock.h>

namespace tavrel {
namespace {

constexpr std::uint8_t leftControl = 37, rightControl = 105, shift = 50, letter = 38, other = 39;
constexpr std::uint8_t controlBit = 4, shiftBit = 1;

ServerKey down(std::uint8_t code) {
  return {code, KeyDirection::down};
}
ServerKey up(std::uint8_t code) {
  return {code, KeyDirection::up};
}

ModifierKeys modifiers() {
  ModifierKeys keys;
  for (const auto& [code, bit] :
       {std::pair(leftControl, controlBit), std::pair(rightControl, controlBit),
        std::pair(shift, shiftBit)}) {
    keys.keys.set(code);
    keys.bits[code] = bit;
  }
  return keys;
}

HeldModifiers held(const std::vector<ServerKey>& keys, std::initializer_list<std::uint8_t> codes,
                   std::uint8_t inForce) {
  ServerKeySet set;
  for (const std::uint8_t code : codes)
    set.set(code);
  return heldModifiers(keys, set, modifiers(), inForce);
}

const std::vector<ServerKey> chord{down(leftControl), down(letter), up(letter), up(leftControl)};

TEST(HeldModifiers, AreNotTypedOnceMore) {
  EXPECT_THAT(held(chord, {leftControl}, controlBit).rest,
              ::testing::ElementsAre(down(letter), up(letter)));
}

TEST(HeldModifiers, CountByWhatTheyDo) {
  const HeldModifiers right = held(chord, {rightControl}, controlBit);
  EXPECT_THAT(right.rest, ::testing::ElementsAre(down(letter), up(letter)));
  EXPECT_TRUE(right.keys[rightControl]);
}

TEST(HeldModifiers, ThatAreNotNeededAreNone) {
  const HeldModifiers shifted = held(chord, {shift}, shiftBit);
  EXPECT_EQ(shifted.rest, chord);
  EXPECT_TRUE(shifted.keys.none());
}

TEST(HeldModifiers, ThatAreDownButNotInForceAreTyped) {
  EXPECT_EQ(held(chord, {leftControl}, 0).rest, chord);
}

TEST(HeldModifiers, ThatOneOfTheKeysIsTypedWithoutAreTyped) {
  const std::vector<ServerKey> keys{down(leftControl), down(letter), up(letter),
                                    up(leftControl),   down(other),  up(other)};
  EXPECT_EQ(held(keys, {leftControl}, controlBit).rest, keys);
}

TEST(HeldModifiers, StayThoughALetterGoesUpAfterThem) {
  const std::vector<ServerKey> keys{down(leftControl), down(letter), up(leftControl), up(letter)};
  EXPECT_THAT(held(keys, {leftControl}, controlBit).rest,
              ::testing::ElementsAre(down(letter), up(letter)));
}

} // namespace
} // namespace tavrel
