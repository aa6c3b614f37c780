#pragma once

#include "base/Modifiers.h"
#include "platform/Keyboard.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace tavrel {

/// What every keyboard does. A World has `keyboard()`, `press(virtual key code)`, `release(...)`,
/// and `use("us" or "dvorak")`.
template <class World> class KeyboardContract : public ::testing::Test {
protected:
  World world;
  Keyboard& keyboard = world.keyboard();

  std::uint16_t keyThatTypes(char character) {
    const auto layout = keyboard.characterTables();
    const auto& plain = layout.value().tables.at(0);
    const auto found = std::find(plain.begin(), plain.end(), static_cast<std::uint8_t>(character));
    return static_cast<std::uint16_t>(found - plain.begin());
  }
};

TYPED_TEST_SUITE_P(KeyboardContract);

TYPED_TEST_P(KeyboardContract, NothingIsDownUntilAKeyIs) {
  EXPECT_FALSE(this->keyboard.keyMap().any());
  this->world.press(0);
  EXPECT_TRUE(this->keyboard.keyMap().isDown(0));
  this->world.release(0);
  EXPECT_FALSE(this->keyboard.keyMap().any());
}

TYPED_TEST_P(KeyboardContract, ModifiersAreKeysAndModifiers) {
  this->world.press(keyCode::option);
  EXPECT_TRUE(this->keyboard.keyMap().isDown(keyCode::option));
  EXPECT_EQ(this->keyboard.eventModifiers(), eventModifier::option);
  this->world.press(keyCode::command);
  EXPECT_EQ(this->keyboard.eventModifiers(), eventModifier::option | eventModifier::command);
  this->world.release(keyCode::command);
  this->world.release(keyCode::option);
  EXPECT_EQ(this->keyboard.eventModifiers(), 0U);
}

TYPED_TEST_P(KeyboardContract, TheUsLayoutTypesItsLettersInPlace) {
  this->world.use("us");
  EXPECT_EQ(this->keyboard.layoutIdentifier(), "com.apple.keylayout.US");
  EXPECT_EQ(this->keyThatTypes('a'), 0);
  EXPECT_EQ(this->keyThatTypes('c'), 8);
  EXPECT_EQ(this->keyThatTypes('\\'), 42);
  EXPECT_EQ(this->keyboard.translate(8) & 0xFF, static_cast<std::uint32_t>('c'));
}

TYPED_TEST_P(KeyboardContract, DvorakMovesTheLettersAndHasAnotherNumber) {
  this->world.use("us");
  const std::int16_t us = this->keyboard.layoutId();
  this->world.use("dvorak");
  EXPECT_EQ(this->keyboard.layoutIdentifier(), "com.apple.keylayout.Dvorak");
  EXPECT_NE(this->keyboard.layoutId(), us);
  EXPECT_EQ(this->keyThatTypes('c'), 34);
  EXPECT_EQ(this->keyThatTypes('i'), 5);
  EXPECT_EQ(this->keyboard.translate(34) & 0xFF, static_cast<std::uint32_t>('c'));
}

TYPED_TEST_P(KeyboardContract, ShiftHasATableOfItsOwn) {
  this->world.use("us");
  const auto layout = this->keyboard.characterTables();
  ASSERT_GE(layout.value().tables.size(), 2U);
  EXPECT_EQ(layout->tables[1][0], 'A');
}

REGISTER_TYPED_TEST_SUITE_P(KeyboardContract, NothingIsDownUntilAKeyIs,
                            ModifiersAreKeysAndModifiers, TheUsLayoutTypesItsLettersInPlace,
                            DvorakMovesTheLettersAndHasAnotherNumber, ShiftHasATableOfItsOwn);

} // namespace tavrel
