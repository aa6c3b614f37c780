#include "base/Modifiers.h"
#include "contract/MenuDiary.h"
#include "platform/linux/applications/ApplicationRegistry.h"
#include "platform/linux/menus/LinuxPresenter.h"
#include "platform/linux/x11/gestures/GestureKeyBuffer.h"
#include "platform/linux/x11/gestures/LinuxEventMonitor.h"
#include "platform/linux/x11/gestures/LinuxHotKeys.h"
#include "platform/linux/x11/keyboard/LinuxKeyboard.h"
#include "platform/linux/x11/keystrokes/KeystrokeServer.h"
#include "platform/linux/x11/keystrokes/OwnKeystrokes.h"
#include "platform/linux/x11/selection/LinuxAccessibility.h"
#include "platform/linux/x11/windows/DesktopWindows.h"
#include "support/Desktop.h"
#include "support/FakeInput.h"
#include "support/OtherWindow.h"

#include <QApplication>
#include <QMenu>
#include <QTimer>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <thread>

namespace tavrel {
namespace {

using ::testing::Contains;
using namespace std::chrono_literals;

constexpr std::uint32_t placeOfOne = 18;
constexpr std::uint8_t keyX = 53, keyDown = 116, keyReturn = 36;

/// Types on a physical keyboard, on a thread of its own.
class Typist {
public:
  explicit Typist(std::function<void(FakeInput&)> what)
      : thread_([this, what = std::move(what)] {
          FakeInput keyboard{Device::keyboard};
          what(keyboard);
          isDone_ = true;
        }) {}
  ~Typist() { thread_.join(); }
  Typist(const Typist&) = delete;
  Typist& operator=(const Typist&) = delete;
  [[nodiscard]] bool isDone() const { return isDone_; }

private:
  std::atomic<bool> isDone_ = false;
  std::thread thread_;
};

void pressHotKey(FakeInput& keyboard) {
  keyboard.down(serverKey::control);
  keyboard.down(serverKey::alt);
  keyboard.tap(serverKey::one);
  keyboard.up(serverKey::alt);
  keyboard.up(serverKey::control);
}

// With pauses, as a user does.
void tapTwice(FakeInput& keyboard) {
  keyboard.down(serverKey::control);
  keyboard.holdAndRelease(serverKey::control, 50);
  std::this_thread::sleep_for(50ms);
  keyboard.down(serverKey::control);
  keyboard.holdAndRelease(serverKey::control, 50);
}

// For all tests: window managers mix up windows that come and go with the same number.
OtherWindow& sharedWindow() {
  static OtherWindow window;
  return window;
}

/// A window of another program that has the keyboard, and a hot key of ours.
class GestureKeys : public ::testing::Test, public EventTarget {
protected:
  GestureKeys() {
    menu.delegate = &diary;
    presenter.setActionTarget(&diary);
    for (const char* title : {"Alpha", "Beta", "Gamma"}) {
      MenuItem& item = menu.add({});
      item.title = title;
      item.action = MenuAction::statusMenuDidSelected;
    }
    hotKeys.setEventTarget(this);
    EXPECT_EQ(hotKeys.registerHotKey(placeOfOne, eventModifier::command | eventModifier::option, {})
                  .status,
              hotKeyStatus::registered);
  }
  void SetUp() override {
    xdotool({QStringLiteral("mousemove"), QStringLiteral("5"), QStringLiteral("5")});
    ASSERT_TRUE(eventually([&] { return window.hasFocus(); }));
    window.forgetKeys();
    closer.callOnTimeout([] {
      if (QWidget* menuLeftOpen = QApplication::activePopupWidget())
        menuLeftOpen->close();
    });
  }
  void sendEvent(const Event&) override {
    ++gestures;
    act();
  }
  void popUp() { presenter.popUp(menu, {100, 500}, MenuFont::standard); }
  void copy() {
    const auto front = accessibility.applicationElement(0);
    for (const KeyboardEvent& event :
         {KeyboardEvent{0, 55, KeyDirection::down}, KeyboardEvent{'c', 8, KeyDirection::down},
          KeyboardEvent{'c', 8, KeyDirection::up}, KeyboardEvent{0, 55, KeyDirection::up}})
      EXPECT_TRUE(accessibility.postKeyboardEvent(front, event));
  }
  [[nodiscard]] bool nothingIsHeld() {
    return eventually([&] { return server->down().none() && server->physicallyDown().none(); });
  }
  /// Types, and waits until all of it has come and every menu is gone.
  void type(const std::function<void(FakeInput&)>& what) {
    const Typist typist(what);
    closer.start(5'000ms); // a key that is lost may be the one that closes the menu
    EXPECT_TRUE(eventually([&] { return typist.isDone() && !QApplication::activePopupWidget(); }));
    EXPECT_TRUE(nothingIsHeld());
  }

  void typeForMenu(const std::function<void(FakeInput&)>& what) {
    diary.lines.clear();
    type(what);
    EXPECT_TRUE(eventually([&] { return !diary.lines.empty(); }));
    EXPECT_TRUE(nothingIsHeld());
  }

  ApplicationRegistry registry{{}};
  DesktopWindows windows;
  OwnKeystrokes own;
  LinuxAccessibility accessibility{{registry, windows, own, nullptr}};
  GestureKeyBuffer keyBuffer{
      [this](const auto& typed, const auto& down) { accessibility.retype(typed, down); }};
  LinuxHotKeys hotKeys{own, &keyBuffer};
  LinuxPresenter presenter;
  std::unique_ptr<KeystrokeServer> server = KeystrokeServer::create();
  MenuDiary diary;
  Menu menu{"menu"};
  OtherWindow& window = sharedWindow();
  QTimer closer;
  std::function<void()> act;
  int gestures = 0;
};

int rounds() {
  const int wanted = qEnvironmentVariableIntValue("TAVREL_ROUNDS");
  return wanted > 0 ? wanted : 100;
}

TEST_F(GestureKeys, AllThatIsTypedAfterTheHotKeyGoesToTheMenu) {
  act = [this] { popUp(); };
  for (int round = 0; round < rounds(); ++round) {
    typeForMenu([](FakeInput& keyboard) {
      pressHotKey(keyboard);
      for (const std::uint8_t key : {keyDown, keyDown, keyReturn})
        keyboard.tap(key);
    });
    ASSERT_THAT(diary.lines, Contains("chosen Beta")) << round;
  }
  EXPECT_EQ(window.keys(keyDown) + window.keys(keyReturn), 0);
}

TEST_F(GestureKeys, WhatIsTypedWhileCopiesArePostedGoesToTheMenu) {
  act = [this] { popUp(); };
  diary.update = [this](Menu&) {
    for (int time = 0; time < 3; ++time) {
      copy();
      std::this_thread::sleep_for(3ms);
    }
  };
  for (int round = 0; round < rounds(); ++round) {
    typeForMenu([](FakeInput& keyboard) {
      pressHotKey(keyboard);
      for (const std::uint8_t key : {keyDown, keyDown, keyDown, keyDown, keyDown, keyReturn}) {
        keyboard.down(key);
        keyboard.holdAndRelease(key, 8); // no user is quicker
      }
    });
    ASSERT_THAT(diary.lines, Contains("chosen Beta")) << round;
    ASSERT_EQ(window.keys(serverKey::c), 3 * (round + 1)) << "three copies";
    ASSERT_EQ(window.keys(serverKey::c, XCB_MOD_MASK_CONTROL), 3 * (round + 1));
    ASSERT_EQ(window.keys(serverKey::c, XCB_MOD_MASK_1), 0) << "Alt does not mix in";
  }
  EXPECT_EQ(window.keys(keyDown) + window.keys(keyReturn), 0);
}

// Three keys: the server drops the press of one that is down already, as when it is typed once more
// in the moment in which it is given back.
TEST_F(GestureKeys, WhatIsTypedAsTheMenuClosesReachesTheApplication) {
  act = [this] { popUp(); };
  const auto counts = [this] {
    return std::vector{window.keys(keyX), window.keys(serverKey::s), window.keys(serverKey::a)};
  };
  for (int round = 1; round <= rounds(); ++round) {
    typeForMenu([](FakeInput& keyboard) {
      pressHotKey(keyboard);
      for (const std::uint8_t key : {keyDown, keyReturn, keyX, serverKey::s, serverKey::a})
        keyboard.tap(key);
    });
    ASSERT_THAT(diary.lines, Contains("chosen Alpha")) << round;
    const auto allHeard = [&] { return counts() == std::vector{round, round, round}; };
    ASSERT_TRUE(eventually(allHeard)) << round << ::testing::PrintToString(counts());
  }
  EXPECT_EQ(window.keys(keyDown) + window.keys(keyReturn), 0);
}

TEST_F(GestureKeys, WhatIsTypedAsTheMenuClosesKeepsItsOrderWhileTheChosenItemTakesItsTime) {
  act = [this] { popUp(); };
  diary.act = [](MenuItem&) { std::this_thread::sleep_for(50ms); };
  const std::vector<std::uint8_t> letters{keyX, serverKey::s, serverKey::a};
  const auto lettersOf = [&](std::vector<std::uint8_t> keys) { // the hot key's modifiers come, too
    std::erase_if(keys, [&](std::uint8_t key) { return std::ranges::count(letters, key) == 0; });
    return keys;
  };
  for (int round = 0; round < 10; ++round) {
    window.forgetKeys();
    typeForMenu([](FakeInput& keyboard) {
      pressHotKey(keyboard);
      for (const std::uint8_t key : {keyDown, keyReturn, keyX, serverKey::s, serverKey::a}) {
        keyboard.waitAndPress(key, 60); // two hundred words a minute
        keyboard.up(key);
      }
    });
    ASSERT_TRUE(eventually([&] { return lettersOf(window.typed()).size() == 3; })) << round;
    ASSERT_EQ(lettersOf(window.typed()), letters) << round;
  }
}

TEST_F(GestureKeys, WhatIsTypedAfterTheHotKeyOfAnItemReachesTheApplication) {
  act = [] { std::this_thread::sleep_for(30ms); };
  for (int round = 0; round < 20; ++round) {
    type([](FakeInput& keyboard) {
      pressHotKey(keyboard);
      keyboard.tap(keyX);
      keyboard.tap(keyX);
    });
    ASSERT_TRUE(eventually([&] { return window.keys(keyX) >= 2 * (round + 1); })) << round;
    ASSERT_EQ(window.keys(keyX), 2 * (round + 1)) << round;
  }
  EXPECT_EQ(gestures, 20);
}

TEST_F(GestureKeys, AnItemThatTakesItsTimeLeavesTheKeyboardAlone) {
  act = [this] {
    FakeInput keyboard{Device::keyboard};
    const auto deadline = std::chrono::steady_clock::now() + 4s;
    while (window.keys(keyX) == 0 && std::chrono::steady_clock::now() < deadline)
      keyboard.tap(keyX);
    EXPECT_GT(window.keys(keyX), 0);
  };
  type(pressHotKey);
  EXPECT_TRUE(eventually([&] { return gestures == 1; }));
}

TEST_F(GestureKeys, TheHotKeyWorksAgainDirectlyAfter) {
  act = [] { std::this_thread::sleep_for(20ms); };
  type([](FakeInput& keyboard) {
    for (int time = 0; time < 10; ++time)
      pressHotKey(keyboard);
  });
  EXPECT_TRUE(eventually([&] { return gestures == 10; }));
  EXPECT_EQ(window.keys(serverKey::one), 0);
}

// Keys that come during the action are typed once more, hot keys among them.
TEST_F(GestureKeys, TheHotKeyWorksAgainWhileItsModifiersStayDown) {
  act = [] { std::this_thread::sleep_for(20ms); };
  for (int round = 1; round <= 5; ++round) {
    type([](FakeInput& keyboard) {
      keyboard.down(serverKey::control);
      keyboard.down(serverKey::alt);
      for (int time = 0; time < 10; ++time)
        keyboard.tap(serverKey::one);
      keyboard.up(serverKey::alt);
      keyboard.up(serverKey::control);
    });
    EXPECT_TRUE(eventually([&] { return gestures == 10 * round; })) << gestures;
  }
  EXPECT_EQ(window.keys(serverKey::one), 0);
}

/// Decides about taps as the core does: it polls the keyboard until the key goes up.
class DoubleTapKeys : public GestureKeys {
protected:
  DoubleTapKeys() {
    EXPECT_EQ(monitor.installModifierHandler([this](double) { modifiersChanged(); }), 0);
  }
  void modifiersChanged() {
    if (!keyboard.keyMap().isDown(keyCode::command))
      return;
    const auto deadline = std::chrono::steady_clock::now() + 200ms;
    while (keyboard.keyMap().isDown(keyCode::command))
      if (std::chrono::steady_clock::now() > deadline)
        return;
      else
        std::this_thread::sleep_for(10ms);
    if (++taps % 2 == 0)
      act();
  }

  LinuxEventMonitor monitor{own, &keyBuffer};
  LinuxKeyboard keyboard{monitor.keysOfEvent()};
  int taps = 0;
};

TEST_F(DoubleTapKeys, AllThatIsTypedAfterTheSecondTapGoesToTheMenu) {
  act = [this] { popUp(); };
  for (int tries = 0; tries < rounds() / 4; ++tries) {
    taps = 0;
    diary.lines.clear();
    type([](FakeInput& input) {
      tapTwice(input);
      for (const std::uint8_t key : {keyDown, keyDown, keyReturn})
        input.tap(key);
    });
    ASSERT_TRUE(eventually([&] { return taps == 2 && !QApplication::activePopupWidget(); }));
    ASSERT_TRUE(eventually([&] { return !diary.lines.empty(); }));
    ASSERT_THAT(diary.lines, Contains("chosen Beta")) << tries;
  }
}

TEST_F(DoubleTapKeys, WhatIsTypedAfterTwoTapsThatOpenNothingReachesTheApplication) {
  act = [] {};
  type([](FakeInput& input) {
    tapTwice(input);
    input.tap(keyX);
  });
  EXPECT_TRUE(eventually([&] { return window.keys(keyX) == 1; }));
  EXPECT_TRUE(nothingIsHeld());
}

} // namespace
} // namespace tavrel
