#pragma once

#include "platform/Alerts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavrel {

/// What a person does with a panel.
enum class AlertDeed { pressDefault, pressAlternate, pressOther, escape, close };

/// Every desktop's panels. `World` has `answer(panel, deed)`: shows the panel, does that, and hands
/// on what came back.
template <class World> class AlertsContract : public ::testing::Test {
protected:
  const AlertPanel one{.title = "T", .message = "M", .defaultButton = "OK"};
  const AlertPanel two{
      .title = "T", .message = "M", .defaultButton = "Remove", .alternateButton = "Cancel"};
  const AlertPanel three{.title = "T",
                         .message = "M",
                         .defaultButton = "Both",
                         .alternateButton = "None",
                         .otherButton = "One"};
  World world;
};

TYPED_TEST_SUITE_P(AlertsContract);

TYPED_TEST_P(AlertsContract, EachButtonIsAnAnswer) {
  EXPECT_EQ(this->world.answer(this->three, AlertDeed::pressDefault), AlertAnswer::standard);
  EXPECT_EQ(this->world.answer(this->three, AlertDeed::pressAlternate), AlertAnswer::alternate);
  EXPECT_EQ(this->world.answer(this->three, AlertDeed::pressOther), AlertAnswer::other);
}

TYPED_TEST_P(AlertsContract, ThereMayBeTwoButtons) {
  EXPECT_EQ(this->world.answer(this->two, AlertDeed::pressDefault), AlertAnswer::standard);
  EXPECT_EQ(this->world.answer(this->two, AlertDeed::pressAlternate), AlertAnswer::alternate);
}

TYPED_TEST_P(AlertsContract, ThereMayBeOneButton) {
  EXPECT_EQ(this->world.answer(this->one, AlertDeed::pressDefault), AlertAnswer::standard);
}

TYPED_TEST_P(AlertsContract, EscapeAndClosingAreTheAlternateAnswer) {
  for (const AlertDeed deed : {AlertDeed::escape, AlertDeed::close}) {
    EXPECT_EQ(this->world.answer(this->two, deed), AlertAnswer::alternate);
    EXPECT_EQ(this->world.answer(this->three, deed), AlertAnswer::alternate);
  }
}

TYPED_TEST_P(AlertsContract, WithOneButtonEscapeAndClosingAreThat) {
  for (const AlertDeed deed : {AlertDeed::escape, AlertDeed::close})
    EXPECT_EQ(this->world.answer(this->one, deed), AlertAnswer::standard);
}

REGISTER_TYPED_TEST_SUITE_P(AlertsContract, EachButtonIsAnAnswer, ThereMayBeTwoButtons,
                            ThereMayBeOneButton, EscapeAndClosingAreTheAlternateAnswer,
                            WithOneButtonEscapeAndClosingAreThat);

} // namespace tavrel
