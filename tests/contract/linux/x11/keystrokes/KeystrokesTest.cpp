#include "platform/linux/applications/ApplicationRegistry.h"
#include "platform/linux/x11/keystrokes/KeystrokePoster.h"
#include "platform/linux/x11/keystrokes/KeystrokeServer.h"
#include "platform/linux/x11/keystrokes/OwnKeystrokes.h"
#include "platform/linux/x11/selection/LinuxAccessibility.h"
#include "platform/linux/x11/windows/DesktopWindows.h"
#include "support/Desktop.h"
#include "support/FakeInput.h"
#include "support/TemporaryFolder.h"

#include <QKeyEvent>
#include <QWidget>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

namespace tavrel {
namespace {

// Tells the keys that come by the server's numbers of their symbols, with Ctrl and "?" for others.
class Recorder final : public QWidget {
public:
  std::vector<std::string> keys;

private:
  void keyPressEvent(QKeyEvent* event) override {
    if (event->key() >= Qt::Key_Shift && event->key() <= Qt::Key_ScrollLock)
      return; // modifiers and locks
    const bool control = event->modifiers().testFlag(Qt::ControlModifier);
    const bool others = (event->modifiers() & ~(Qt::ControlModifier | Qt::KeypadModifier)) != 0;
    keys.push_back(std::string(control ? "Ctrl+" : "") + (others ? "?+" : "") +
                   std::to_string(event->nativeVirtualKey()));
  }
};

struct KeystrokesWorld {
  ApplicationRegistry registry{{}};
  DesktopWindows windows;
  OwnKeystrokes own;
  LinuxAccessibility accessibility{{registry, windows, own, nullptr}};

  static void use(const QStringList& layout) {
    QProcess::execute(QStringLiteral("setxkbmap"), layout);
  }
  void copy(std::uint16_t keyOfC = 8) {
    const auto front = accessibility.applicationElement(0);
    for (const KeyboardEvent& event :
         {KeyboardEvent{0, 55, KeyDirection::down}, KeyboardEvent{'c', keyOfC, KeyDirection::down},
          KeyboardEvent{'c', keyOfC, KeyDirection::up}, KeyboardEvent{0, 55, KeyDirection::up}})
      EXPECT_TRUE(accessibility.postKeyboardEvent(front, event));
  }
};

class Keystrokes : public ::testing::Test {
protected:
  void SetUp() override {
    recorder.show();
    // Again and again: a window that goes away may take the keys with it a last time.
    ASSERT_TRUE(eventually([&] {
      recorder.activateWindow();
      return recorder.isActiveWindow();
    }));
  }
  void TearDown() override { KeystrokesWorld::use({QStringLiteral("us")}); }
  bool arrives(const std::string& key) {
    return eventually([&] { return recorder.keys == std::vector<std::string>{key}; });
  }
  static bool serverIsLikeTheKeyboard() {
    const auto server = KeystrokeServer::create();
    return eventually([&] { return server->down() == server->physicallyDown(); });
  }
  KeystrokesWorld world;
  Recorder recorder;
};

TEST_F(Keystrokes, ACopyArrivesOnEachLayout) {
  for (const auto& [layout, key] :
       {std::pair("us", 8), std::pair("de", 8), std::pair("us -variant dvorak", 34)}) {
    KeystrokesWorld::use(QString::fromLatin1(layout).split(QLatin1Char(' ')));
    recorder.keys.clear();
    world.copy(static_cast<std::uint16_t>(key));
    EXPECT_TRUE(arrives("Ctrl+99")) << layout;
  }
}

TEST_F(Keystrokes, ACopyArrivesWithCapsLockOn) {
  FakeInput input;
  input.tap(serverKey::capsLock);
  world.copy();
  EXPECT_TRUE(eventually([&] { return recorder.keys.size() == 1; }));
  EXPECT_TRUE(KeystrokeServer::create()->capsLockIsOn());
  input.tap(serverKey::capsLock);
  EXPECT_FALSE(KeystrokeServer::create()->capsLockIsOn());
  EXPECT_TRUE(serverIsLikeTheKeyboard());
}

TEST_F(Keystrokes, ACopyArrivesWithNumLockOn) {
  FakeInput keyboard(Device::keyboard);
  keyboard.tap(serverKey::numLock);
  world.copy();
  EXPECT_TRUE(arrives("Ctrl+99")) << ::testing::PrintToString(recorder.keys);
  keyboard.tap(serverKey::numLock);
  EXPECT_TRUE(serverIsLikeTheKeyboard());
}

TEST_F(Keystrokes, ACopyArrivesFromTheSecondOfTwoLayoutsWhichStays) {
  KeystrokesWorld::use({QStringLiteral("us,ru")});
  const auto server = KeystrokeServer::create();
  server->lockGroup(1);
  server->roundTrip();
  world.copy();
  EXPECT_TRUE(eventually([&] { return recorder.keys.size() == 1; }));
  EXPECT_EQ(recorder.keys.front(), "Ctrl+99");
  EXPECT_EQ(server->group(), 1U);
  server->lockGroup(0);
  server->roundTrip();
  EXPECT_TRUE(serverIsLikeTheKeyboard());
}

TEST_F(Keystrokes, AKeystrokeThatIsHandedOnStaysTheSameInATerminal) {
  xdotool({QStringLiteral("set_window"), QStringLiteral("--class"), QStringLiteral("Lxterminal"),
           QString::number(recorder.winId())});
  ASSERT_TRUE(eventually([&] {
    const auto front = world.windows.facts(world.windows.activeWindow());
    return front && front->windowClass == "Lxterminal";
  }));
  world.copy();
  EXPECT_TRUE(arrives("Ctrl+99"));
  EXPECT_TRUE(serverIsLikeTheKeyboard());
}

TEST_F(Keystrokes, ModifiersThatTheUserHoldsDoNotMixInAndAreHeldAfterwards) {
  FakeInput keyboard(Device::keyboard);
  keyboard.down(serverKey::control);
  keyboard.down(serverKey::alt);
  recorder.keys.clear();
  world.copy();
  EXPECT_TRUE(
      eventually([&] { return !recorder.keys.empty() && recorder.keys.back() == "Ctrl+99"; }));
  const auto server = KeystrokeServer::create();
  EXPECT_TRUE(server->down()[serverKey::control] && server->down()[serverKey::alt]);
  EXPECT_TRUE(serverIsLikeTheKeyboard());
  keyboard.up(serverKey::alt);
  keyboard.up(serverKey::control);
  EXPECT_TRUE(eventually([&] { return server->down().none(); }));
}

TEST_F(Keystrokes, AChordWhoseModifierTheKeyboardLacksTypesNoBareLetter) {
  for (const char* key : {"37", "105"})
    ASSERT_EQ(QProcess::execute(QStringLiteral("xmodmap"),
                                {QStringLiteral("-e"),
                                 QStringLiteral("keycode %1 = NoSymbol").arg(QLatin1String(key))}),
              0);
  ASSERT_EQ(QProcess::execute(QStringLiteral("xmodmap"),
                              {QStringLiteral("-e"), QStringLiteral("clear control")}),
            0);
  recorder.keys.clear();
  world.copy();
  xdotool({QStringLiteral("key"), QStringLiteral("x")});
  EXPECT_TRUE(eventually([&] { return !recorder.keys.empty(); }));
  EXPECT_EQ(recorder.keys.size(), 1U) << ::testing::PrintToString(recorder.keys);
}

// Such as one that brings the keys of another machine's keyboard.
TEST_F(Keystrokes, ModifiersThatAProgramHoldsDoNotMixInAndAreHeldUntilItReleasesThem) {
  FakeInput program;
  program.down(serverKey::control);
  program.down(serverKey::alt);
  recorder.keys.clear();
  world.copy();
  EXPECT_TRUE(
      eventually([&] { return !recorder.keys.empty() && recorder.keys.back() == "Ctrl+99"; }));
  const auto server = KeystrokeServer::create();
  EXPECT_TRUE(server->down()[serverKey::control]);
  EXPECT_TRUE(server->down()[serverKey::alt]);
  program.up(serverKey::alt);
  program.up(serverKey::control);
  EXPECT_TRUE(server->down().none());
}

TEST_F(Keystrokes, AModifierThatIsHeldAndNeededIsNotTypedOnceMore) {
  for (const Device device : {Device::keyboard, Device::program}) {
    FakeInput keys(device);
    keys.down(serverKey::rightControl);
    recorder.keys.clear();
    world.copy();
    EXPECT_TRUE(arrives("Ctrl+99")) << ::testing::PrintToString(recorder.keys);
    EXPECT_TRUE(KeystrokeServer::create()->down()[serverKey::rightControl]);
    keys.up(serverKey::rightControl);
    EXPECT_TRUE(KeystrokeServer::create()->down().none());
  }
}

// The server takes the modifier for up then, though the program has not released it.
TEST_F(Keystrokes, ACopyArrivesWhileAProgramHoldsAModifierThatTheUserHasTapped) {
  FakeInput program;
  FakeInput keyboard(Device::keyboard);
  program.down(serverKey::control);
  keyboard.tap(serverKey::control);
  recorder.keys.clear();
  world.copy();
  EXPECT_TRUE(arrives("Ctrl+99")) << ::testing::PrintToString(recorder.keys);
  program.up(serverKey::control);
  EXPECT_TRUE(KeystrokeServer::create()->down().none());
}

TEST_F(Keystrokes, WhatProgramsTypeWhileTheGrabIsReleasedIsNotTakenForOurOwn) {
  KeystrokePoster poster(world.windows, world.own);
  bool isOwn = true;
  poster.whileGrabIsReleased([&] { isOwn = world.own.areBeingPosted(); });
  EXPECT_FALSE(isOwn);
}

} // namespace
} // namespace tavrel
