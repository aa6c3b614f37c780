#pragma once

#include "platform/Preferences.h"

#include <gtest/gtest.h>

namespace tavrel {

/// What every preference store does. A World has `preferences()`, the store of this program, and
/// `elsewhere(domain, key, value)`, a write by another program.
template <class World> class PreferencesContract : public ::testing::Test {
protected:
  World world;
  Preferences& preferences = world.preferences();
  const std::string domain = "qorvane.test";
};

TYPED_TEST_SUITE_P(PreferencesContract);

TYPED_TEST_P(PreferencesContract, AMissingDomainHoldsNothing) {
  EXPECT_EQ(this->preferences.value(this->domain, "key"), std::nullopt);
}

TYPED_TEST_P(PreferencesContract, EveryKindComesBackAsItself) {
  const PropertyList everything = PropertyList::Dictionary{
      {"true", true},
      {"one", 1},
      {"real", 1.0},
      {"text", "a\n€"},
      {"data", Bytes{0, 255}},
      {"date", PropertyList::Date{86400}},
      {"array", PropertyList::Array{false, -1, PropertyList::Dictionary{}}}};
  this->preferences.setValue(this->domain, "key", everything);
  EXPECT_TRUE(this->preferences.synchronize(this->domain));
  EXPECT_EQ(this->preferences.value(this->domain, "key"), everything);
}

TYPED_TEST_P(PreferencesContract, AnothersWriteIsSeenAfterSynchronisingOnly) {
  EXPECT_EQ(this->preferences.value(this->domain, "key"), std::nullopt);
  this->world.elsewhere(this->domain, "key", 7);
  EXPECT_EQ(this->preferences.value(this->domain, "key"), std::nullopt);
  EXPECT_TRUE(this->preferences.synchronize(this->domain));
  EXPECT_EQ(this->preferences.value(this->domain, "key"), PropertyList(7));
}

TYPED_TEST_P(PreferencesContract, OnesOwnWriteIsSeenAtOnce) {
  this->preferences.setValue(this->domain, "key", "mine");
  EXPECT_EQ(this->preferences.value(this->domain, "key"), PropertyList("mine"));
}

TYPED_TEST_P(PreferencesContract, SynchronisingKeepsWhatAnotherProgramWrote) {
  this->preferences.setValue(this->domain, "mine", 1);
  this->world.elsewhere(this->domain, "theirs", 2);
  EXPECT_TRUE(this->preferences.synchronize(this->domain));
  EXPECT_EQ(this->preferences.value(this->domain, "mine"), PropertyList(1));
  EXPECT_EQ(this->preferences.value(this->domain, "theirs"), PropertyList(2));
}

TYPED_TEST_P(PreferencesContract, StoringNothingRemovesTheKey) {
  this->world.elsewhere(this->domain, "key", 7);
  this->preferences.setValue(this->domain, "key", std::nullopt);
  EXPECT_EQ(this->preferences.value(this->domain, "key"), std::nullopt);
  EXPECT_TRUE(this->preferences.synchronize(this->domain));
  EXPECT_EQ(this->preferences.value(this->domain, "key"), std::nullopt);
}

TYPED_TEST_P(PreferencesContract, DomainsKnowNothingOfOneAnother) {
  this->preferences.setValue(this->domain, "key", 1);
  EXPECT_EQ(this->preferences.value("qorvane.other", "key"), std::nullopt);
}

REGISTER_TYPED_TEST_SUITE_P(PreferencesContract, AMissingDomainHoldsNothing,
                            EveryKindComesBackAsItself, AnothersWriteIsSeenAfterSynchronisingOnly,
                            OnesOwnWriteIsSeenAtOnce, SynchronisingKeepsWhatAnotherProgramWrote,
                            StoringNothingRemovesTheKey, DomainsKnowNothingOfOneAnother);

} // namespace tavrel
