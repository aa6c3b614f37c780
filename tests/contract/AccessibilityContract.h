#pragma once

#include "platform/Accessibility.h"

#include <gtest/gtest.h>

namespace tavrel {

/// What every desktop's accessibility does. A World has `accessibility()`, `aProcess()` that is
/// there, `noProcess()` that is not, and `emptyPlace()`, where no application shows anything.
template <class World> class AccessibilityContract : public ::testing::Test {
protected:
  World world;
  Accessibility& accessibility = world.accessibility();
};

TYPED_TEST_SUITE_P(AccessibilityContract);

TYPED_TEST_P(AccessibilityContract, ThereIsAlwaysAnElementOfAnApplicationAndOfTheSystem) {
  EXPECT_NE(this->accessibility.applicationElement(this->world.aProcess()), nullptr);
  EXPECT_NE(this->accessibility.applicationElement(this->world.noProcess()), nullptr);
  EXPECT_NE(this->accessibility.systemWideElement(), nullptr);
}

TYPED_TEST_P(AccessibilityContract, AProcessThatIsNotThereTakesKeysAndLosesThem) {
  const auto nobody = this->accessibility.applicationElement(this->world.noProcess());
  EXPECT_TRUE(this->accessibility.postKeyboardEvent(nobody, {'c', 8, KeyDirection::down}));
  EXPECT_TRUE(this->accessibility.postKeyboardEvent(nobody, {'c', 8, KeyDirection::up}));
}

TYPED_TEST_P(AccessibilityContract, OnlyApplicationsTakeKeys) {
  const KeyboardEvent key{'c', 8, KeyDirection::down};
  EXPECT_FALSE(this->accessibility.postKeyboardEvent(nullptr, key));
  EXPECT_FALSE(this->accessibility.postKeyboardEvent(this->accessibility.systemWideElement(), key));
}

TYPED_TEST_P(AccessibilityContract, NothingHasNoRole) {
  EXPECT_FALSE(this->accessibility.role(nullptr));
}

TYPED_TEST_P(AccessibilityContract, ThereIsNoElementWhereNoApplicationShowsAnything) {
  const auto everything = this->accessibility.systemWideElement();
  EXPECT_EQ(this->accessibility.elementAt(everything, this->world.emptyPlace()), nullptr);
}

TYPED_TEST_P(AccessibilityContract, NothingLiesInNothing) {
  EXPECT_EQ(this->accessibility.elementAt(nullptr, this->world.emptyPlace()), nullptr);
}

REGISTER_TYPED_TEST_SUITE_P(AccessibilityContract,
                            ThereIsAlwaysAnElementOfAnApplicationAndOfTheSystem,
                            AProcessThatIsNotThereTakesKeysAndLosesThem, OnlyApplicationsTakeKeys,
                            NothingHasNoRole, ThereIsNoElementWhereNoApplicationShowsAnything,
                            NothingLiesInNothing);

} // namespace tavrel
