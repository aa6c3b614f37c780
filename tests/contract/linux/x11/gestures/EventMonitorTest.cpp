#include "contract/EventMonitorContract.h"
#include "contract/linux/x11/gestures/EventMonitorFixture.h"

#include "platform/linux/x11/gestures/LinuxEventMonitor.h"
#include "platform/linux/x11/keyboard/KeyboardGrab.h"
#include "platform/linux/x11/keyboard/LinuxKeyboard.h"
#include "platform/linux/x11/keyboard/PhysicalKeyboards.h"
#include "platform/linux/x11/keystrokes/OwnKeystrokes.h"
#include "support/Desktop.h"
#include "support/FakeInput.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QScopeGuard>

namespace tavrel {
namespace {

using ::testing::ElementsAre;

/// A keyboard's keys while another program, with its own menu open, has keyboard and pointer.
struct KeysUnderAGrab : KeyboardsKeys {
  FakeInput other;
  KeysUnderAGrab() { EXPECT_TRUE(other.grabKeyboardAndPointer()); }
};

using EventMonitorWorlds = ::testing::Types<ProgramsKeys, KeyboardsKeys, KeysUnderAGrab>;
INSTANTIATE_TYPED_TEST_SUITE_P(Linux, EventMonitorContract, EventMonitorWorlds);

TEST_F(LinuxEventMonitorOnKeyboard, ModifiersAreReportedWhileAHandlerRunsTheEventLoop) {
  inHandler = [this] {
    inHandler = {};
    world.input.tap(serverKey::control);
    EXPECT_TRUE(eventually([this] { return calls == 3; })) << calls; // the first release, and a tap
  };
  world.input.tap(serverKey::control);
  EXPECT_TRUE(eventually([this] { return calls == 4; })) << calls;
}

TEST_F(LinuxEventMonitorOnKeyboard, WhatIsPressedInAMenuThatAHandlerShowsIsNotReported) {
  inHandler = [this] {
    inHandler = {};
    const KeyboardGrab ofMenu;
    world.input.tap(serverKey::control);
    world.letEventsHappen();
  };
  world.input.tap(serverKey::control);
  EXPECT_TRUE(eventually([this] { return calls == 1; })) << calls;
  EXPECT_EQ(callsUpToNow(), 1) << "neither the release, nor the tap";
}

TEST_F(LinuxEventMonitorOnKeyboard, KeysThatAreNoModifiersAreNotReported) {
  world.input.tap(serverKey::a);
  EXPECT_EQ(callsUpToNow(), 0);
}

TEST_F(LinuxEventMonitorOnKeyboard, AKeyThatGoesUpTwiceIsReportedOnce) {
  world.input.down(serverKey::control);
  FakeInput program;
  program.up(serverKey::control);
  world.input.up(serverKey::control);
  EXPECT_EQ(callsUpToNow(), 2);
}

TEST_F(LinuxEventMonitorOnKeyboard, AKeyThatTheLayoutMakesAModifierIsReported) {
  const QStringList plainLayout{QStringLiteral("us"), QStringLiteral("-option"), {}};
  const auto restore = qScopeGuard([&] { handleLayout(plainLayout); });
  handleLayout(
      {QStringLiteral("us"), QStringLiteral("-option"), QStringLiteral("ctrl:menu_rctrl")});
  EXPECT_TRUE(eventually([&] {
    calls = 0;
    world.input.tap(135); // the menu key
    return callsUpToNow() == 2;
  }));
}

TEST_F(LinuxEventMonitorOnKeyboard, ChangesToldLateAreToldWithTheStateThatWas) {
  std::vector<std::uint32_t> states;
  inHandler = [&] { states.push_back(world.keys.eventModifiers()); };
  world.input.tap(serverKey::control);
  world.input.down(serverKey::alt);
  world.input.down(serverKey::shift);
  world.input.up(serverKey::alt);
  world.input.up(serverKey::shift);
  EXPECT_TRUE(eventually([&] { return states.size() == 6; }));
  EXPECT_THAT(states,
              ElementsAre(eventModifier::command, 0U, eventModifier::option,
                          eventModifier::option | eventModifier::shift, eventModifier::shift, 0U));
}

TEST_F(LinuxEventMonitorOnKeyboard, TheTimeBetweenChangesIsThatOfTheServer) {
  world.input.down(serverKey::control);
  world.input.holdAndRelease(serverKey::control, 60);
  EXPECT_TRUE(eventually([this] { return calls == 2; }));
  EXPECT_GE(times[1] - times[0], 0.06);
}

/// The server tells of no key of a keyboard that is grabbed, as ours are while a copy is posted;
/// what was pressed and released meanwhile is put right by keystrokes of our own.
class KeysDuringACopy : public LinuxEventMonitorOnKeyboard {
protected:
  KeysDuringACopy() {
    inHandler = [this] { states.push_back(world.keys.eventModifiers()); };
  }
  ~KeysDuringACopy() override { xcb_disconnect(server); }

  void duringACopy(const std::function<void(FakeInput&)>& user,
                   const std::function<void(FakeInput&)>& putRight) {
    world.own.begin();
    {
      const PhysicalKeyboards grabbed(*server);
      user(world.input);
    }
    FakeInput program;
    putRight(program);
    world.own.end();
  }

  xcb_connection_t* server = xcb_connect(nullptr, nullptr);
  std::vector<std::uint32_t> states;
};

TEST_F(KeysDuringACopy, AReleaseIsNoticed) {
  world.input.down(serverKey::shift);
  duringACopy([](FakeInput& user) { user.up(serverKey::shift); },
              [](FakeInput& program) { program.up(serverKey::shift); });
  EXPECT_TRUE(eventually([this] { return calls == 1; }));
  world.input.tap(serverKey::control);
  EXPECT_TRUE(eventually([this] { return calls == 3; }));
  EXPECT_THAT(states, ElementsAre(eventModifier::shift, eventModifier::command, 0U));
}

TEST_F(KeysDuringACopy, APressIsNoticed) {
  duringACopy([](FakeInput& user) { user.down(serverKey::shift); },
              [](FakeInput& program) { program.down(serverKey::shift); });
  world.input.tap(serverKey::control);
  EXPECT_TRUE(eventually([this] { return calls == 2; }));
  EXPECT_THAT(states,
              ElementsAre(eventModifier::shift | eventModifier::command, eventModifier::shift));
  world.input.up(serverKey::shift);
  FakeInput().up(serverKey::shift);
}

/// As a screen locker: a window over all of the screen that no window manager manages.
class Cover {
public:
  Cover() {
    const xcb_screen_t& screen = *xcb_setup_roots_iterator(xcb_get_setup(server_)).data;
    const std::uint32_t unmanaged = 1;
    const xcb_window_t window = xcb_generate_id(server_);
    xcb_create_window(server_, 0, window, screen.root, 0, 0, screen.width_in_pixels,
                      screen.height_in_pixels, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, 0,
                      XCB_CW_OVERRIDE_REDIRECT, &unmanaged);
    xcb_map_window(server_, window);
    std::free(xcb_get_input_focus_reply(server_, xcb_get_input_focus(server_), nullptr));
  }
  ~Cover() { xcb_disconnect(server_); }
  Cover(const Cover&) = delete;
  Cover& operator=(const Cover&) = delete;

private:
  xcb_connection_t* server_ = xcb_connect(nullptr, nullptr);
};

TEST_F(LinuxEventMonitorOnKeyboard, KeysAreNotReportedWhileTheScreenIsLocked) {
  {
    const Cover cover;
    FakeInput locker;
    ASSERT_TRUE(locker.grabKeyboardAndPointer());
    world.input.tap(serverKey::control);
    QElapsedTimer passed;
    passed.start();
    EXPECT_TRUE(eventually([&] { return passed.hasExpired(100); }));
    EXPECT_EQ(calls, 0);
  }
  world.input.tap(serverKey::control);
  EXPECT_EQ(callsUpToNow(), 2) << "and are again afterwards";
}

TEST_F(LinuxEventMonitorOnKeyboard, KeysOverAFullScreenWindowWithoutAGrabAreReported) {
  const Cover cover;
  world.input.tap(serverKey::control);
  EXPECT_EQ(callsUpToNow(), 2);
}

TEST_F(LinuxEventMonitorOnKeyboard, OwnKeystrokesAreNotReported) {
  FakeInput program;
  world.own.begin();
  program.down(serverKey::control);
  program.tap(serverKey::c);
  program.up(serverKey::control);
  world.own.end();
  EXPECT_EQ(callsUpToNow(), 0);
}

TEST_F(LinuxEventMonitorOnKeyboard,
       KeysOfTheUserDuringOwnKeystrokesAndOfProgramsAroundThemAreReported) {
  FakeInput program;
  program.tap(serverKey::control);
  world.own.begin();
  program.tap(serverKey::control);
  world.input.tap(serverKey::shift);
  world.own.end();
  program.tap(serverKey::control);
  EXPECT_EQ(callsUpToNow(), 6);
}

TEST_F(LinuxEventMonitorOnKeyboard, NestedOwnKeystrokesAreNotReported) {
  FakeInput program;
  world.own.begin();
  world.own.begin();
  world.own.end();
  program.tap(serverKey::control);
  world.own.end();
  EXPECT_EQ(callsUpToNow(), 0);
}

TEST(LinuxEventMonitor, KeysThatWereDownBeforeItWasInstalledCount) {
  FakeInput input;
  input.down(serverKey::a);
  KeyboardsKeys world;
  std::optional<KeyMap> keys;
  ASSERT_EQ(world.adapter.installModifierHandler([&](double) {
    if (!keys)
      keys = world.keys.keyMap();
  }),
            0);
  world.input.tap(serverKey::control);
  EXPECT_TRUE(eventually([&] { return keys.has_value(); }));
  input.up(serverKey::a);
  keys->clear(keyCode::command);
  EXPECT_TRUE(keys->any());
}

TEST(LinuxEventMonitor, WithoutADisplayInstallingFailsAndOneLineSaysSo) {
  const std::string display = std::getenv("DISPLAY");
  OwnKeystrokes own;
  LinuxEventMonitor monitor(own);
  ::setenv("DISPLAY", ":63999", 1);
  ::testing::internal::CaptureStderr();
  EXPECT_LT(monitor.installModifierHandler([](double) {}), 0);
  ::setenv("DISPLAY", display.c_str(), 1);
  EXPECT_EQ(::testing::internal::GetCapturedStderr(),
            "tavrel.monitor: this display does not tell of its modifier keys\n");
  EXPECT_EQ(monitor.installModifierHandler([](double) {}), 0) << "the next attempt may work";
}

TEST(LinuxEventMonitor, WhenTheServerEndsNothingMoreIsReportedAndOneLineSaysSo) {
  QProcess server;
  server.start("Xvfb", {"-displayfd", "1", "-nolisten", "tcp"});
  ASSERT_TRUE(server.waitForReadyRead(20000));
  const std::string display = std::getenv("DISPLAY");
  OwnKeystrokes own;
  LinuxEventMonitor monitor(own);
  ::setenv("DISPLAY", (":" + server.readAllStandardOutput().trimmed()).constData(), 1);
  EXPECT_EQ(monitor.installModifierHandler([](double) {}), 0);
  ::setenv("DISPLAY", display.c_str(), 1);
  server.kill();
  ASSERT_TRUE(server.waitForFinished(20000));
  ::testing::internal::CaptureStderr();
  QElapsedTimer passed;
  passed.start();
  EXPECT_TRUE(eventually([&] { return passed.hasExpired(100); }));
  own.begin();
  own.end();
  EXPECT_EQ(::testing::internal::GetCapturedStderr(),
            "tavrel.monitor: the display is gone: its modifier keys are not seen any more\n");
}

} // namespace
} // namespace tavrel
