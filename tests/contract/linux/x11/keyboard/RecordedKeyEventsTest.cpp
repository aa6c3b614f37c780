#include "platform/linux/x11/keyboard/RecordedKeyEvents.h"
#include "support/FakeInput.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <initializer_list>
#include <utility>

namespace tavrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

ServerKey down(std::uint8_t code) {
  return {code, KeyDirection::down};
}
ServerKey up(std::uint8_t code) {
  return {code, KeyDirection::up};
}

RecordedKeyEvents typed(std::initializer_list<ServerKey> keys) {
  RecordedKeyEvents events;
  for (const ServerKey& key : keys) {
    xcb_key_press_event_t event{};
    event.response_type = key.direction == KeyDirection::down ? XCB_KEY_PRESS : XCB_KEY_RELEASE;
    event.detail = key.code;
    events.push_back(event);
  }
  return events;
}

std::vector<ServerKey> retyped(const RecordedKeyEvents& events, const ServerKeySet& downNow) {
  ModifierKeys modifiers;
  for (const auto& [key, bit] : std::initializer_list<std::pair<std::size_t, std::uint8_t>>{
           {serverKey::control, XCB_MOD_MASK_CONTROL},
           {serverKey::rightControl, XCB_MOD_MASK_CONTROL},
           {serverKey::shift, XCB_MOD_MASK_SHIFT},
           {serverKey::alt, XCB_MOD_MASK_1}}) {
    modifiers.keys.set(key);
    modifiers.bits[key] = bit;
  }
  ServerKeySet locks;
  locks.set(serverKey::capsLock);
  return keysToRetype(events, downNow, modifiers, locks);
}

std::vector<ServerKey> retyped(std::initializer_list<ServerKey> keys,
                               std::initializer_list<std::size_t> downNow = {}) {
  ServerKeySet now;
  for (const std::size_t key : downNow)
    now.set(key);
  return retyped(typed(keys), now);
}

TEST(RecordedKeyEvents, KeysComeInTheirOrder) {
  EXPECT_THAT(retyped({down(38), up(38), down(39), up(39)}),
              ElementsAre(down(38), up(38), down(39), up(39)));
}

TEST(RecordedKeyEvents, TheReleasesOfAGestureAreNothingToTypeAgain) {
  EXPECT_THAT(retyped({up(serverKey::one), up(serverKey::alt), up(serverKey::control)}), IsEmpty());
}

TEST(RecordedKeyEvents, AModifierThatWasHeldBeforeGoesDownForItsKey) {
  EXPECT_THAT(retyped({down(54), up(54), up(serverKey::control)}),
              ElementsAre(down(serverKey::control), down(54), up(54), up(serverKey::control)));
}

TEST(RecordedKeyEvents, AModifierThatIsHeldStillGoesUpAllTheSame) {
  EXPECT_THAT(retyped({down(serverKey::shift), down(38), up(38)}, {serverKey::shift}),
              ElementsAre(down(serverKey::shift), down(38), up(38), up(serverKey::shift)));
}

TEST(RecordedKeyEvents, AModifierOfTheGestureIsGoneBeforeTheNextKey) {
  EXPECT_THAT(retyped({up(serverKey::control), down(38), up(38)}), ElementsAre(down(38), up(38)));
}

TEST(RecordedKeyEvents, AKeyThatIsHeldStillIsTypedOnce) {
  EXPECT_THAT(retyped({down(38)}, {38}), ElementsAre(down(38), up(38)));
}

TEST(RecordedKeyEvents, AModifierWhosePressWentElsewhereIsDownForItsKey) {
  RecordedKeyEvents events =
      typed({down(serverKey::control), down(39), up(serverKey::control), up(39), /* down here */
             down(39), up(serverKey::control), up(39)});
  events[1].state = events[2].state = events[4].state = events[5].state = XCB_MOD_MASK_CONTROL;
  EXPECT_THAT(retyped(events, {}), ElementsAre(down(serverKey::control), down(39), up(39), down(39),
                                               up(39), up(serverKey::control)));
}

TEST(RecordedKeyEvents, AModifierWhoseReleaseWentElsewhereIsUpForTheNextKey) {
  RecordedKeyEvents events =
      typed({down(serverKey::shift), down(38), up(38), /* up here */ down(39), up(39),
             down(serverKey::shift), up(serverKey::shift)});
  events[1].state = events[2].state = XCB_MOD_MASK_SHIFT;
  EXPECT_THAT(retyped(events, {}), ElementsAre(down(serverKey::shift), down(38), up(38),
                                               up(serverKey::shift), down(39), up(39)));
}

TEST(RecordedKeyEvents, AModifierThatWentUpUnseenAfterItsKeyWasDownForIt) {
  RecordedKeyEvents events = typed({down(54), up(54)});
  events[0].state = events[1].state = XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_2; // Num Lock has no key
  EXPECT_THAT(retyped(events, {}),
              ElementsAre(down(serverKey::control), down(54), up(54), up(serverKey::control)));
}

TEST(RecordedKeyEvents, OfTwoKeysOfAModifierTheOneThatGoesUpLaterWasDown) {
  RecordedKeyEvents events = typed({down(54), up(54), up(serverKey::rightControl)});
  events[0].state = XCB_MOD_MASK_CONTROL;
  EXPECT_THAT(retyped(events, {}), ElementsAre(down(serverKey::rightControl), down(54), up(54),
                                               up(serverKey::rightControl)));
}

TEST(RecordedKeyEvents, ALockIsNotSwitchedOnceMore) {
  EXPECT_THAT(retyped({down(serverKey::capsLock), up(serverKey::capsLock), down(38), up(38)}),
              ElementsAre(down(38), up(38)));
}

TEST(RecordedKeyEvents, OneThatComesBackLateIsPutWhereItWasTyped) {
  RecordedKeyEvents events = typed({down(serverKey::a), down(serverKey::c), down(serverKey::s)});
  events[0].time = 5;
  events[1].time = 0xFFFFFFF0; // before the server's time began anew
  events[2].time = 5;
  events = inTheirOrder(events);
  EXPECT_EQ(events[0].detail, serverKey::c);
  EXPECT_EQ(events[1].detail, serverKey::a);
  EXPECT_EQ(events[2].detail, serverKey::s);
}

TEST(RecordedKeyEvents, OneWithoutATimeStaysBesideTheOneBefore) {
  RecordedKeyEvents events = typed({down(serverKey::a), down(serverKey::c), down(serverKey::s)});
  events[0].time = 0xFFFFFFF0;
  events[2].time = 0xFFFFFFF1;
  events = inTheirOrder(events);
  EXPECT_EQ(events[0].detail, serverKey::a);
  EXPECT_EQ(events[1].detail, serverKey::c);
  EXPECT_EQ(events[2].detail, serverKey::s);
}

} // namespace
} // namespace tavrel
