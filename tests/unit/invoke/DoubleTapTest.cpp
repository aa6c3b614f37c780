#include "support/CoreTest.h"

#include "invoke/KeyMapSets.h"

namespace tavrel {
namespace {

/// Taps keys as the clock goes on; the double tap of the left Command key is what is waited for.
class DoubleTap : public CoreTest {
protected:
  DoubleTap() {
    handler.addClient("tapped", modifier::command);
    (void)desktop.notifications.addObserver({"tapped", NTModifierKeyActionHandler::sender},
                                            [this](const Notification&) { ++posted; });
  }

  void tapAt(double time, double heldFor, std::uint32_t modifiers = eventModifier::command,
             std::uint16_t key = keyCode::command) {
    desktop.clock.control.now = time;
    hold(key);
    desktop.keyboard.control.eventModifiers = modifiers;
    desktop.clock.control.onSleep = [this, key, up = time + heldFor](double now) {
      if (now >= up - 1e-9)
        desktop.keyboard.control.down.clear(key);
    };
    desktop.eventMonitor.modifiersChanged(desktop.clock.now());
    desktop.keyboard.control.down.clear(key);
    desktop.keyboard.control.eventModifiers = 0;
    desktop.eventMonitor.modifiersChanged(desktop.clock.now());
  }

  NTModifierKeyActionHandler handler;
  int posted = 0;
};

TEST_F(DoubleTap, TwoQuickTapsPostOnce) {
  tapAt(10, 0.1);
  EXPECT_EQ(posted, 0);
  tapAt(10.2, 0.1);
  EXPECT_EQ(posted, 1);
}

TEST_F(DoubleTap, JustUnderAQuarterOfASecondIsQuick) {
  tapAt(10, 0.1);
  tapAt(10.249, 0.1);
  EXPECT_EQ(posted, 1);
}

TEST_F(DoubleTap, AQuarterOfASecondIsNot) {
  tapAt(10, 0.1);
  tapAt(10.25, 0.1);
  EXPECT_EQ(posted, 0);
}

TEST_F(DoubleTap, ALateTapBeginsANewPair) {
  tapAt(10, 0.05);
  tapAt(10.3, 0.05);
  EXPECT_EQ(posted, 0);
  tapAt(10.4, 0.05);
  EXPECT_EQ(posted, 1);
}

TEST_F(DoubleTap, AThirdQuickTapDoesNotFireAgain) {
  for (const double time : {10.0, 10.1, 10.2})
    tapAt(time, 0.05);
  EXPECT_EQ(posted, 1);
  tapAt(10.3, 0.05);
  EXPECT_EQ(posted, 2);
}

TEST_F(DoubleTap, AHeldKeyNeverCountsAndClearsAPendingTap) {
  tapAt(10, 0.01);
  tapAt(10.02, 0.25);
  tapAt(10.24, 0.01);
  EXPECT_EQ(posted, 0);
}

TEST_F(DoubleTap, AReleaseJustBeforeTheLimitCountsAndAtTheLimitNot) {
  hold(keyCode::command);
  double up = 0.19;
  desktop.clock.control.onSleep = [&](double now) {
    if (now >= up - 1e-9)
      desktop.keyboard.control.down.clear(keyCode::command);
  };
  EXPECT_TRUE(handler.checkForModifierRelease(keyCode::command));
  hold(keyCode::command);
  up = desktop.clock.control.now + 0.215;
  EXPECT_FALSE(handler.checkForModifierRelease(keyCode::command));
}

TEST_F(DoubleTap, AShortcutTypedTwiceIsNone) {
  for (const double time : {10.0, 10.1}) {
    hold(1);
    tapAt(time, 0.05);
  }
  EXPECT_EQ(posted, 0);
}

TEST_F(DoubleTap, AKeyPressedWhileTheModifierIsDownIsAShortcutAndClearsAPendingTap) {
  tapAt(10, 0.01);
  desktop.clock.control.now = 10.1;
  hold(keyCode::command);
  desktop.keyboard.control.eventModifiers = eventModifier::command;
  desktop.clock.control.onSleep = [this](double) { hold(1); };
  desktop.eventMonitor.modifiersChanged(desktop.clock.now());
  desktop.keyboard.control.down = {};
  tapAt(10.2, 0.01);
  EXPECT_EQ(posted, 0);
  tapAt(10.3, 0.01);
  EXPECT_EQ(posted, 1) << "a new pair";
}

TEST_F(DoubleTap, EveryNameThatWaitsForTheModifierIsPosted) {
  int others = 0;
  handler.addClient("another", modifier::command);
  (void)desktop.notifications.addObserver({"another", NTModifierKeyActionHandler::sender},
                                          [&](const Notification&) { ++others; });
  tapAt(10, 0.05);
  tapAt(10.1, 0.05);
  EXPECT_EQ(posted, 1);
  EXPECT_EQ(others, 1);
}

TEST_F(DoubleTap, ATapOfAnotherModifierBeginsAPairOfItsOwn) {
  handler.addClient("tapped", modifier::option);
  tapAt(10, 0.02);
  tapAt(10.1, 0.02, eventModifier::option, keyCode::option);
  EXPECT_EQ(posted, 0);
  tapAt(10.2, 0.02, eventModifier::option, keyCode::option);
  EXPECT_EQ(posted, 1);
}

TEST_F(DoubleTap, AnotherModifierHeldSpoilsIt) {
  handler.addClient("tapped", modifier::command | modifier::shift);
  hold(keyCode::shift);
  tapAt(10, 0.05, eventModifier::command | eventModifier::shift);
  tapAt(10.1, 0.05, eventModifier::command | eventModifier::shift);
  EXPECT_EQ(posted, 0);
}

TEST_F(DoubleTap, CapsLockDoesNotDisturb) {
  hold(keyCode::capsLock);
  for (const double time : {10.0, 10.1})
    tapAt(time, 0.05, eventModifier::command | eventModifier::capsLock);
  EXPECT_EQ(posted, 1);
}

TEST_F(DoubleTap, AModifierNobodyWaitsForLeavesAPendingTap) {
  tapAt(10, 0.02);
  tapAt(10.05, 0.02, eventModifier::option, keyCode::option);
  tapAt(10.1, 0.02, eventModifier::option, keyCode::option);
  EXPECT_EQ(posted, 0);
  tapAt(10.2, 0.02);
  EXPECT_EQ(posted, 1);
}

TEST_F(DoubleTap, WhoWaitsForAKeyThatIsNoModifierDisturbsNobody) {
  handler.addClient("never", 0);
  tapAt(10, 0.05);
  tapAt(10.1, 0.05);
  EXPECT_EQ(posted, 1);
}

TEST_F(DoubleTap, ARemovedClientHearsNothing) {
  handler.removeClient("tapped");
  tapAt(10, 0.05);
  tapAt(10.1, 0.05);
  EXPECT_EQ(posted, 0);
}

TEST_F(DoubleTap, AHandlerThatIsGoneIsNotCalled) {
  (void)NTModifierKeyActionHandler{};
  desktop.eventMonitor.modifiersChanged(desktop.clock.now());
}

TEST_F(DoubleTap, ARefusedMonitorIsLogged) {
  desktop.eventMonitor.control.status = -50;
  const NTModifierKeyActionHandler another;
  EXPECT_THAT(desktop.log.control.lines, ::testing::ElementsAre("InstallEventHandler err -50"));
}

TEST_F(DoubleTap, ASnapshotIsLoggedByteByByte) {
  KeyMap map;
  keyMapAddKeyCode(map, 1);
  keyMapAddKeyCode(map, 127);
  logKeyMap(map);
  EXPECT_EQ(desktop.log.control.lines.at(0),
            "KeyMap  02 00 00 00 00 00 00 00 00 00 00 00 00 00 00 80");
}

TEST_F(DoubleTap, EveryModifierKeyHasItsMask) {
  using Handler = NTModifierKeyActionHandler;
  for (const auto& [key, mask] : std::map<std::uint32_t, std::uint32_t>{{55, 0x100000},
                                                                        {56, 0x20000},
                                                                        {57, 0x10000},
                                                                        {58, 0x80000},
                                                                        {59, 0x40000},
                                                                        {63, 0x800000}}) {
    EXPECT_EQ(Handler::keyMaskForKeyCode(key), mask);
    EXPECT_EQ(Handler::keyCodeForKeyMask(mask), key);
  }
  EXPECT_EQ(Handler::keyMaskForKeyCode(54), 0U);
  EXPECT_EQ(Handler::keyCodeForKeyMask(0x120000), 0U);
}

TEST_F(DoubleTap, ANotifiedEventIsLoggedAndHandled) {
  handler.modifierFlagsChangedNotification(Event());
  EXPECT_THAT(desktop.log.control.lines,
              ::testing::ElementsAre("modifierFlagsChangedNotification"));
}

/// The double tap as launch arms it.
class ArmedDoubleTap : public ControllerTest {
protected:
  int opened(std::uint16_t key, std::uint32_t modifiers) {
    controller.applicationWillFinishLaunching();
    for (int tap = 0; tap < 2; ++tap) {
      hold(key);
      desktop.keyboard.control.eventModifiers = modifiers;
      desktop.clock.control.onSleep = [&](double) { desktop.keyboard.control.down.clear(key); };
      desktop.eventMonitor.modifiersChanged(desktop.clock.now());
    }
    return static_cast<int>(desktop.presenter.control.shown.size());
  }
};

TEST_F(ArmedDoubleTap, WatchesTheCommandKeyUnlessToldOtherwise) {
  EXPECT_EQ(opened(keyCode::command, eventModifier::command), 1);
}

TEST_F(ArmedDoubleTap, ZeroMeansTheCommandKeyToo) {
  set(TVR_DoubleTapKeyCode, 0);
  EXPECT_EQ(opened(keyCode::command, eventModifier::command), 1);
}

TEST_F(ArmedDoubleTap, WatchesTheKeyOfTheSettings) {
  set(TVR_DoubleTapKeyCode, 59);
  EXPECT_EQ(opened(keyCode::control, eventModifier::control), 1);
}

TEST_F(ArmedDoubleTap, OtherKeysDoNothing) {
  EXPECT_EQ(opened(keyCode::option, eventModifier::option), 0);
}

TEST_F(ArmedDoubleTap, IsOffWhenAHotKeyOpensThePopup) {
  set(TVR2_PopupStartType, 0);
  EXPECT_EQ(opened(keyCode::command, eventModifier::command), 0);
}

TEST_F(ArmedDoubleTap, IsOffWithoutThePopup) {
  set(TVR2_EnablePopupMenu, false);
  EXPECT_EQ(opened(keyCode::command, eventModifier::command), 0);
}

} // namespace
} // namespace tavrel
