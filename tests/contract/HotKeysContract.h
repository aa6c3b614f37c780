#pragma once

#include "base/Modifiers.h"
#include "platform/HotKeys.h"

#include <gmock/gmock.h>

#include <vector>

namespace tavrel {

/// Keeps the events it is sent.
struct RecordedEvents final : EventTarget {
  std::vector<Event> events;
  void sendEvent(const Event& event) override { events.push_back(event); }
};

/// Virtual key codes of the digits 1 and 2.
inline constexpr std::uint32_t keyOne = 18;
inline constexpr std::uint32_t keyTwo = 19;

/// What all hot keys do. A World has `hotKeys()`, `press(virtual key code, event-manager
/// modifiers)`, which also releases, `settle()`, which returns when all releases have been told,
/// and `takeForAnotherProgram(virtual key code, modifiers)`.
template <class World> class HotKeysContract : public ::testing::Test {
protected:
  HotKeysContract() { hotKeys.setEventTarget(&told); }
  ~HotKeysContract() override { hotKeys.setEventTarget(nullptr); }

  HotKeyRegistration add(std::uint32_t keyCode, std::uint32_t modifiers) {
    return hotKeys.registerHotKey(keyCode, modifiers, {0x5456524D, next++});
  }
  std::vector<EventHotKeyRef> references() {
    world.settle();
    std::vector<EventHotKeyRef> all;
    for (const Event& event : told.events)
      all.push_back(event.data1);
    return all;
  }

  RecordedEvents told;
  World world;
  HotKeys& hotKeys = world.hotKeys();
  std::uint32_t next = 0;
};

TYPED_TEST_SUITE_P(HotKeysContract);

TYPED_TEST_P(HotKeysContract, AReleasedHotKeyIsASystemDefinedEvent) {
  const auto key = this->add(keyOne, eventModifier::command | eventModifier::option);
  EXPECT_EQ(key.status, hotKeyStatus::registered);
  EXPECT_NE(key.reference, 0U);
  this->world.press(keyOne, eventModifier::command | eventModifier::option);
  this->world.settle();
  ASSERT_EQ(this->told.events.size(), 1U);
  EXPECT_EQ(this->told.events[0].type, EventType::systemDefined);
  EXPECT_EQ(this->told.events[0].subtype, hotKeyReleasedSubtype);
  EXPECT_EQ(this->told.events[0].data1, key.reference);
}

TYPED_TEST_P(HotKeysContract, EachCombinationHasAReferenceOfItsOwn) {
  const auto plain = this->add(keyOne, eventModifier::command).reference;
  const auto shifted = this->add(keyOne, eventModifier::command | eventModifier::shift).reference;
  const auto other = this->add(keyTwo, eventModifier::command | eventModifier::control).reference;
  this->world.press(keyTwo, eventModifier::command | eventModifier::control);
  this->world.press(keyOne, eventModifier::command | eventModifier::shift);
  this->world.press(keyOne, eventModifier::command);
  EXPECT_THAT(this->references(), ::testing::ElementsAre(other, shifted, plain));
}

TYPED_TEST_P(HotKeysContract, OtherModifiersAreAnotherCombination) {
  EXPECT_EQ(this->add(keyOne, eventModifier::command).status, hotKeyStatus::registered);
  this->world.press(keyOne, eventModifier::command | eventModifier::option);
  this->world.press(keyTwo, eventModifier::command);
  EXPECT_THAT(this->references(), ::testing::IsEmpty());
}

TYPED_TEST_P(HotKeysContract, AnUnregisteredHotKeyIsSilent) {
  const auto key = this->add(keyOne, eventModifier::command);
  EXPECT_EQ(this->hotKeys.unregisterHotKey(key.reference), hotKeyStatus::registered);
  this->world.press(keyOne, eventModifier::command);
  EXPECT_THAT(this->references(), ::testing::IsEmpty());
}

TYPED_TEST_P(HotKeysContract, OnlyARegisteredReferenceCanBeUnregistered) {
  const auto key = this->add(keyOne, eventModifier::command);
  EXPECT_EQ(this->hotKeys.unregisterHotKey(key.reference + 1), hotKeyStatus::unknown);
  EXPECT_EQ(this->hotKeys.unregisterHotKey(0), hotKeyStatus::unknown);
  EXPECT_EQ(this->hotKeys.unregisterHotKey(key.reference), hotKeyStatus::registered);
  EXPECT_EQ(this->hotKeys.unregisterHotKey(key.reference), hotKeyStatus::unknown);
}

TYPED_TEST_P(HotKeysContract, AHotKeyRegisteredAgainWorksUnderANewReference) {
  const auto first = this->add(keyOne, eventModifier::command).reference;
  EXPECT_EQ(this->hotKeys.unregisterHotKey(first), hotKeyStatus::registered);
  const auto second = this->add(keyOne, eventModifier::command).reference;
  EXPECT_NE(second, first);
  this->world.press(keyOne, eventModifier::command);
  EXPECT_THAT(this->references(), ::testing::ElementsAre(second));
}

TYPED_TEST_P(HotKeysContract, ARefusedHotKeyDisturbsNoOther) {
  this->world.takeForAnotherProgram(keyOne, eventModifier::command);
  const auto refused = this->add(keyOne, eventModifier::command);
  EXPECT_EQ(refused.status, hotKeyStatus::taken);
  const auto other = this->add(keyTwo, eventModifier::command).reference;
  this->world.press(keyOne, eventModifier::command);
  this->world.press(keyTwo, eventModifier::command);
  EXPECT_THAT(this->references(), ::testing::ElementsAre(other));
}

TYPED_TEST_P(HotKeysContract, WithoutATargetNobodyIsTold) {
  EXPECT_EQ(this->add(keyOne, eventModifier::command).status, hotKeyStatus::registered);
  this->hotKeys.setEventTarget(nullptr);
  this->world.press(keyOne, eventModifier::command);
  EXPECT_THAT(this->references(), ::testing::IsEmpty());
}

REGISTER_TYPED_TEST_SUITE_P(HotKeysContract, AReleasedHotKeyIsASystemDefinedEvent,
                            EachCombinationHasAReferenceOfItsOwn,
                            OtherModifiersAreAnotherCombination, AnUnregisteredHotKeyIsSilent,
                            OnlyARegisteredReferenceCanBeUnregistered,
                            AHotKeyRegisteredAgainWorksUnderANewReference,
                            ARefusedHotKeyDisturbsNoOther, WithoutATargetNobodyIsTold);

} // namespace tavrel
