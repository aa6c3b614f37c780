#include "contract/linux/x11/gestures/EventMonitorFixture.h"

#include <QScopeGuard>

#include <gmock/gmock.h>

#include <optional>

namespace tavrel {
namespace {

using ::testing::ElementsAre;

/// One tap of Command; what happens while its handler runs, or had happened before, decides.
class ModifierTap : public LinuxEventMonitorOnKeyboard {
protected:
  /// Whether the snapshots of the handler of the next press show a key besides Command.
  bool showsAnotherKey(const std::function<void()>& meanwhile) {
    std::optional<bool> another;
    inHandler = [&] {
      if (another)
        return;
      meanwhile();
      KeyMap keys = world.keys.keyMap();
      keys.clear(keyCode::command);
      another = keys.any();
    };
    world.input.down(serverKey::control);
    EXPECT_TRUE(eventually([&] { return another.has_value(); }));
    inHandler = {};
    world.input.up(serverKey::control);
    EXPECT_TRUE(eventually([&] { return calls >= 2; }));
    EXPECT_FALSE(world.keys.keyMap().any()) << "only as long as its handler runs";
    return another.value_or(false);
  }
  void releaseCommand() { world.input.up(serverKey::control); }
};

TEST_F(ModifierTap, AloneShowsNoOtherKey) {
  EXPECT_FALSE(showsAnotherKey([] {}));
  calls = 0;
  EXPECT_FALSE(showsAnotherKey([this] { releaseCommand(); }));
}

TEST_F(ModifierTap, AClickWhileItIsHeldIsAnotherKeyAlsoAfterItsRelease) {
  EXPECT_TRUE(showsAnotherKey([this] { world.input.click(leftButton); }));
  calls = 0;
  EXPECT_TRUE(showsAnotherKey([this] {
    world.input.click(leftButton);
    releaseCommand();
  }));
}

TEST_F(ModifierTap, TheWheelIsAnotherKey) {
  EXPECT_TRUE(showsAnotherKey([this] { world.input.click(wheelUp); }));
}

TEST_F(ModifierTap, AKeyTooShortForASnapshotIsAnotherKey) {
  EXPECT_TRUE(showsAnotherKey([this] { world.input.tap(serverKey::s); }));
}

TEST_F(ModifierTap, CapsLockIsNotAnotherKey) {
  EXPECT_FALSE(showsAnotherKey([this] { world.input.tap(serverKey::capsLock); }));
  world.input.tap(serverKey::capsLock);
}

TEST_F(ModifierTap, AClickAfterItsReleaseIsNotAnotherKey) {
  EXPECT_FALSE(showsAnotherKey([this] {
    releaseCommand();
    world.input.click(leftButton);
  }));
}

TEST_F(ModifierTap, AMouseButtonThatWasDownBeforeIsAnotherKey) {
  world.input.buttonDown(leftButton);
  EXPECT_TRUE(showsAnotherKey([] {}));
  world.input.buttonUp(leftButton);
  calls = 0;
  EXPECT_FALSE(showsAnotherKey([] {}));
}

TEST_F(ModifierTap, OwnKeystrokesAreNotAnotherKey) {
  FakeInput program;
  EXPECT_FALSE(showsAnotherKey([&] {
    world.own.begin();
    program.tap(serverKey::c);
    world.own.end();
  }));
}

/// Taps that are over before the event loop runs: what the handler of the first press sees.
class LateTap : public LinuxEventMonitorOnKeyboard {
protected:
  /// Two snapshots, without Command; and whether it is down in them.
  void look() {
    inHandler = [this] {
      inHandler = {};
      for (int time = 0; time < 2; ++time) {
        KeyMap keys = world.keys.keyMap();
        isCommandDown.push_back(keys.isDown(keyCode::command));
        keys.clear(keyCode::command);
        isAnotherDown.push_back(keys.any());
      }
    };
    EXPECT_TRUE(eventually([this] { return isAnotherDown.size() == 2; }));
  }
  void tapCommand() { world.input.tap(serverKey::control); }

  std::vector<bool> isCommandDown;
  std::vector<bool> isAnotherDown;
};

TEST_F(LateTap, IsSeenDownAndThenUp) {
  tapCommand();
  look();
  EXPECT_THAT(isCommandDown, ElementsAre(true, false));
  EXPECT_THAT(isAnotherDown, ElementsAre(false, false));
}

TEST_F(LateTap, FollowedByAnotherTapIsSeenUp) {
  tapCommand();
  tapCommand();
  look();
  EXPECT_THAT(isCommandDown, ElementsAre(true, false));
}

TEST_F(LateTap, FollowedByAnotherKeyOrAClickIsATap) {
  tapCommand();
  world.input.down(serverKey::a);
  world.input.click(leftButton);
  look();
  world.input.up(serverKey::a);
  EXPECT_THAT(isCommandDown, ElementsAre(true, false));
  EXPECT_THAT(isAnotherDown, ElementsAre(false, false));
}

TEST_F(LateTap, OfAHeldKeyIsNone) {
  world.input.down(serverKey::control);
  world.input.holdAndRelease(serverKey::control, 250);
  look();
  EXPECT_TRUE(isAnotherDown.back());
}

TEST_F(LateTap, OfOneOfTwoCtrlKeysIsNone) {
  world.input.down(serverKey::control);
  world.input.down(serverKey::rightControl);
  world.input.up(serverKey::control);
  int handled = 0;
  bool isAnother = false;
  inHandler = [&] {
    if (++handled != 2)
      return;
    KeyMap keys = world.keys.keyMap();
    keys.clear(keyCode::command);
    isAnother = keys.any();
  };
  EXPECT_TRUE(eventually([&] { return handled == 3; }));
  world.input.up(serverKey::rightControl);
  EXPECT_TRUE(isAnother);
}

TEST_F(LateTap, WithAKeyThatWasDownBeforeIsNone) {
  world.input.down(serverKey::a);
  tapCommand();
  world.input.up(serverKey::a);
  look();
  EXPECT_TRUE(isAnotherDown.front());
}

TEST_F(LateTap, OfACapsLockThatTheLayoutMakesCtrlIsSeenUp) {
  const auto restore = qScopeGuard([] { handleLayout({"us", "-option", {}}); });
  handleLayout({"us", "-option", "", "-option", "caps:ctrl_modifier"});
  world.input.tap(serverKey::super);
  EXPECT_TRUE(eventually([this] { return calls == 2; }));
  world.input.tap(serverKey::capsLock);
  look();
  EXPECT_THAT(isCommandDown, ElementsAre(true, false));
}

TEST_F(LateTap, IsOverOnceItIsSeen) {
  tapCommand();
  bool isShiftDown = false;
  inHandler = [&] {
    inHandler = {};
    while (world.keys.keyMap().isDown(keyCode::command)) {
    }
    world.input.down(serverKey::shift);
    isShiftDown = world.keys.keyMap().isDown(keyCode::shift) &&
                  world.keys.eventModifiers() == eventModifier::shift;
  };
  EXPECT_TRUE(eventually([this] { return calls == 3; }));
  world.input.up(serverKey::shift);
  EXPECT_TRUE(isShiftDown) << "as for a menu that the second tap opens";
}

} // namespace
} // namespace tavrel
