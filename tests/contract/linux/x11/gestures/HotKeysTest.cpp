#include "contract/HotKeysContract.h"

#include "platform/linux/x11/gestures/LinuxHotKeys.h"
#include "platform/linux/x11/keyboard/ServerModifiers.h"
#include "platform/linux/x11/keystrokes/OwnKeystrokes.h"
#include "support/Desktop.h"
#include "support/FakeInput.h"

#include <QElapsedTimer>
#include <QKeyEvent>
#include <QMenu>
#include <QProcess>
#include <QScopeGuard>
#include <QWidget>
#include <QWindow>

#include <map>

namespace tavrel {
namespace {

void execute(const char* program, const QStringList& arguments) {
  ASSERT_EQ(QProcess::execute(QString::fromLatin1(program), arguments), 0) << program;
}

constexpr std::uint32_t keyA = 0;
constexpr std::uint32_t keyF12 = 111;
constexpr std::uint32_t allModifiers =
    eventModifier::command | eventModifier::option | eventModifier::shift | eventModifier::control;

const std::map<std::uint32_t, std::uint8_t> serverKeysOf{
    {keyOne, serverKey::one}, {keyTwo, 11}, {keyA, serverKey::a}, {keyF12, serverKey::f12}};
const std::map<std::uint32_t, std::uint8_t> modifierKeys{
    {eventModifier::command, serverKey::control},
    {eventModifier::shift, serverKey::shift},
    {eventModifier::option, serverKey::alt},
    {eventModifier::control, serverKey::super}};

/// Real keys, and a hot key of the test's own that comes behind all others.
class HotKeyWorld final : private EventTarget, private HotKeys {
public:
  HotKeyWorld() : last_(adapter.registerHotKey(keyF12, allModifiers, {}).reference) {
    adapter.setEventTarget(this);
  }

  HotKeys& hotKeys() { return *this; }
  void down(std::uint32_t keyCode, std::uint32_t modifiers) {
    for (const auto& [modifier, key] : modifierKeys)
      if ((modifiers & modifier) != 0)
        keyboard.down(key);
    keyboard.down(serverKeysOf.at(keyCode));
  }
  void up(std::uint32_t keyCode, std::uint32_t modifiers) {
    keyboard.up(serverKeysOf.at(keyCode));
    for (const auto& [modifier, key] : modifierKeys)
      if ((modifiers & modifier) != 0)
        keyboard.up(key);
  }
  void press(std::uint32_t keyCode, std::uint32_t modifiers) {
    down(keyCode, modifiers);
    up(keyCode, modifiers);
  }
  void settle() {
    const int before = lastCame_;
    press(keyF12, allModifiers);
    EXPECT_TRUE(eventually([&] { return lastCame_ > before; })) << "the last key is not reported";
  }
  void takeForAnotherProgram(std::uint32_t keyCode, std::uint32_t modifiers) {
    ASSERT_EQ(modifiers, eventModifier::command);
    ASSERT_TRUE(other.grabKey(serverKeysOf.at(keyCode), XCB_MOD_MASK_CONTROL));
  }

  OwnKeystrokes own;
  LinuxHotKeys adapter{own};
  FakeInput keyboard{Device::keyboard};
  FakeInput other;

private:
  void setEventTarget(EventTarget* target) override { target_ = target; }
  HotKeyRegistration registerHotKey(std::uint32_t keyCode, std::uint32_t modifiers,
                                    const EventHotKeyID& id) override {
    return adapter.registerHotKey(keyCode, modifiers, id);
  }
  OSStatus unregisterHotKey(EventHotKeyRef reference) override {
    return adapter.unregisterHotKey(reference);
  }
  void sendEvent(const Event& event) override {
    if (event.data1 == last_)
      ++lastCame_;
    else if (target_)
      target_->sendEvent(event);
  }

  EventHotKeyRef last_;
  EventTarget* target_ = nullptr;
  int lastCame_ = 0;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Linux, HotKeysContract, HotKeyWorld);

/// One hot key, Command-1 unless told otherwise.
class LinuxHotKey : public HotKeysContract<HotKeyWorld> {
protected:
  /// Whether the combination reaches us, once.
  bool works(std::uint32_t keyCode = keyOne, std::uint32_t modifiers = eventModifier::command) {
    told.events.clear();
    world.press(keyCode, modifiers);
    return references().size() == 1;
  }
  bool comesToWorkWith(std::uint8_t key, std::uint8_t modifier) {
    return eventually([&] {
      told.events.clear();
      world.keyboard.down(modifier);
      world.keyboard.tap(key);
      world.keyboard.up(modifier);
      return references().size() == 1;
    });
  }
  bool isFreeForOthers(std::uint8_t key, std::uint16_t modifiers) {
    const bool free = world.other.grabKey(key, modifiers);
    if (free)
      world.other.ungrabKey(key, modifiers);
    return free;
  }
};

TEST_F(LinuxHotKey, EachModifierIsItsKey) {
  for (const auto& [modifier, key] : modifierKeys) {
    const auto registered = add(keyOne, modifier);
    EXPECT_EQ(registered.status, hotKeyStatus::registered);
    EXPECT_TRUE(works(keyOne, modifier)) << modifier;
    EXPECT_EQ(hotKeys.unregisterHotKey(registered.reference), hotKeyStatus::registered);
  }
}

struct LockKeys {
  FakeInput keyboard{Device::keyboard};
  std::vector<std::uint8_t> on;
  void turnOn(std::uint8_t key) {
    keyboard.tap(key);
    on.push_back(key);
  }
  ~LockKeys() {
    for (const std::uint8_t key : on)
      keyboard.tap(key);
  }
};

TEST_F(LinuxHotKey, WorksWhateverLocksAreOn) {
  EXPECT_EQ(add(keyOne, eventModifier::command).status, hotKeyStatus::registered);
  EXPECT_TRUE(works());
  {
    LockKeys locks;
    locks.turnOn(serverKey::capsLock);
    EXPECT_TRUE(works()) << "Caps Lock";
    locks.turnOn(serverKey::numLock);
    EXPECT_TRUE(works()) << "Caps Lock and Num Lock";
  }
  LockKeys locks;
  locks.turnOn(serverKey::numLock);
  EXPECT_TRUE(works()) << "Num Lock";
}

TEST_F(LinuxHotKey, WorksWhenNumLockHasAnotherBit) {
  execute("xmodmap", {"-e", "remove mod2 = Num_Lock", "-e", "add mod3 = Num_Lock"});
  const auto restore = qScopeGuard([] { execute("setxkbmap", {"us"}); });
  HotKeyWorld later;
  RecordedEvents events;
  later.hotKeys().setEventTarget(&events);
  EXPECT_EQ(later.adapter.registerHotKey(keyOne, eventModifier::command, {}).status,
            hotKeyStatus::registered);
  LockKeys locks;
  locks.turnOn(serverKey::numLock);
  later.press(keyOne, eventModifier::command);
  later.settle();
  EXPECT_EQ(events.events.size(), 1U);
}

TEST_F(LinuxHotKey, AltIsWhateverBitAltHas) {
  execute("xmodmap", {"-e", "clear mod1", "-e", "clear mod3", "-e", "add mod3 = Alt_L"});
  const auto restore = qScopeGuard([] { execute("setxkbmap", {"us"}); });
  HotKeyWorld later;
  RecordedEvents events;
  later.hotKeys().setEventTarget(&events);
  EXPECT_EQ(later.adapter.registerHotKey(keyOne, eventModifier::option, {}).status,
            hotKeyStatus::registered);
  later.press(keyOne, eventModifier::option);
  later.settle();
  EXPECT_EQ(events.events.size(), 1U);
}

TEST_F(LinuxHotKey, ARefusalIsOneLineAndLeavesNothingGrabbed) {
  ASSERT_TRUE(world.other.grabKey(serverKey::one,
                                  XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_1 | XCB_MOD_MASK_LOCK));
  ::testing::internal::CaptureStderr();
  EXPECT_EQ(add(keyOne, eventModifier::command | eventModifier::option).status,
            hotKeyStatus::taken);
  EXPECT_EQ(::testing::internal::GetCapturedStderr(),
            "tavrel.hotkeys: the shortcut \"\" of the menu (Ctrl+Alt+1): another program has this "
            "key; choose another one, or end that program's use of it\n");
  ::testing::internal::CaptureStderr();
  EXPECT_EQ(add(keyOne, eventModifier::command | eventModifier::option).status,
            hotKeyStatus::taken);
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "") << "all are registered again and again";
  FakeInput third;
  EXPECT_TRUE(third.grabKey(serverKey::one, XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_1))
      << "the combinations that were free stay free";
}

TEST_F(LinuxHotKey, TheSameCombinationTwiceIsTaken) {
  const auto first = add(keyOne, eventModifier::command).reference;
  ::testing::internal::CaptureStderr();
  EXPECT_EQ(add(keyOne, eventModifier::command).status, hotKeyStatus::taken);
  EXPECT_EQ(::testing::internal::GetCapturedStderr(),
            "tavrel.hotkeys: the shortcut \"\" of the menu (Ctrl+1): another item has this key; "
            "choose another one for either\n");
  world.press(keyOne, eventModifier::command);
  EXPECT_THAT(references(), ::testing::ElementsAre(first));
}

TEST_F(LinuxHotKey, AKeyThatThisKeyboardLacksIsRefusedByName) {
  ::testing::internal::CaptureStderr();
  EXPECT_EQ(add(127, allModifiers).status, hotKeyStatus::taken);
  EXPECT_EQ(::testing::internal::GetCapturedStderr(),
            "tavrel.hotkeys: the shortcut \"\" of the menu (Ctrl+Alt+Shift+Super+key 127): this "
            "keyboard lacks a key of it, or Alt or Super; choose another one\n");
  ::testing::internal::CaptureStderr();
  const EventHotKeyID id{0, 0, "\u00E9", "Backup"};
  EXPECT_EQ(hotKeys.registerHotKey(0xFFFFFFFF, eventModifier::command, id).status,
            hotKeyStatus::taken);
  EXPECT_EQ(::testing::internal::GetCapturedStderr(),
            "tavrel.hotkeys: the shortcut \"\u00E9\" of \"Backup\" (Ctrl+no key): this keyboard "
            "lacks a key of it, or Alt or Super; choose another one\n");
}

TEST_F(LinuxHotKey, ARefusedKeyIsTriedAgainWhenTheLayoutChanges) {
  const auto restore = qScopeGuard([] { execute("setxkbmap", {"us"}); });
  ASSERT_TRUE(world.other.grabKey(serverKey::one, XCB_MOD_MASK_CONTROL));
  const auto refused = add(keyOne, eventModifier::command);
  EXPECT_EQ(refused.status, hotKeyStatus::taken);
  EXPECT_FALSE(works());
  world.other.ungrabKey(serverKey::one, XCB_MOD_MASK_CONTROL);
  execute("setxkbmap", {"de"});
  EXPECT_TRUE(eventually([this] { return works(); }));
  EXPECT_THAT(references(), ::testing::ElementsAre(refused.reference));
}

TEST_F(LinuxHotKey, AModifierThatComesWithALayoutWorksFromThenOn) {
  const auto restore = qScopeGuard([] { execute("setxkbmap", {"us"}); });
  execute("xmodmap", {"-e", "clear mod4"});
  const auto superIsThere = [this] {
    const auto key = add(keyTwo, eventModifier::control);
    (void)hotKeys.unregisterHotKey(key.reference);
    return key.status == hotKeyStatus::registered;
  };
  EXPECT_TRUE(eventually([&] { return !superIsThere(); }));
  EXPECT_EQ(add(keyOne, eventModifier::control).status, hotKeyStatus::taken);
  execute("setxkbmap", {"us"});
  EXPECT_TRUE(eventually(superIsThere));
  EXPECT_TRUE(works(keyOne, eventModifier::control));
}

TEST_F(LinuxHotKey, OneOfSeveralKeysWithItsCodeIsEnough) {
  constexpr std::uint32_t placeOfF13 = 105; // Print has the same
  constexpr std::uint8_t print = 107, f13 = 191;
  ASSERT_TRUE(world.other.grabKey(print, XCB_MOD_MASK_CONTROL));
  EXPECT_EQ(add(placeOfF13, eventModifier::command).status, hotKeyStatus::registered);
  world.keyboard.down(serverKey::control);
  world.keyboard.tap(f13);
  world.keyboard.up(serverKey::control);
  EXPECT_EQ(references().size(), 1U);
}

TEST_F(LinuxHotKey, UnregisteringReleasesTheKeyAtOnce) {
  const auto key = add(keyOne, eventModifier::command);
  EXPECT_FALSE(isFreeForOthers(serverKey::one, XCB_MOD_MASK_CONTROL));
  EXPECT_EQ(hotKeys.unregisterHotKey(key.reference), hotKeyStatus::registered);
  EXPECT_TRUE(isFreeForOthers(serverKey::one, XCB_MOD_MASK_CONTROL));
}

TEST_F(LinuxHotKey, IsTheKeyInItsPlaceInEveryLayout) {
  const auto restore = qScopeGuard([] { execute("setxkbmap", {"us"}); });
  EXPECT_EQ(add(keyA, eventModifier::command).status, hotKeyStatus::registered);
  for (const char* layout : {"de", "us -variant dvorak", "ru", "us,ru -option grp:toggle"}) {
    execute("setxkbmap", QString::fromLatin1(layout).split(QLatin1Char(' ')));
    EXPECT_TRUE(eventually([this] { return works(keyA); })) << layout;
  }
}

TEST_F(LinuxHotKey, FollowsTheKeyThatBecomesAnotherModifier) {
  const auto restore = qScopeGuard([] { execute("setxkbmap", {"us", "-option", ""}); });
  EXPECT_EQ(add(keyOne, eventModifier::option).status, hotKeyStatus::registered);
  execute("setxkbmap", {"us", "-option", "altwin:swap_alt_win"});
  EXPECT_TRUE(comesToWorkWith(serverKey::one, serverKey::super)) << "Alt is where Super was";
  execute("setxkbmap", {"us", "-option", ""});
  EXPECT_TRUE(comesToWorkWith(serverKey::one, serverKey::alt));
}

TEST_F(LinuxHotKey, WorksInTheSecondGroup) {
  const auto restore = qScopeGuard([] { execute("setxkbmap", {"us", "-option", ""}); });
  execute("setxkbmap", {"us,ru", "-option", "grp:caps_toggle"});
  EXPECT_EQ(add(keyA, eventModifier::command).status, hotKeyStatus::registered);
  EXPECT_TRUE(eventually([this] { return works(keyA); }));
  world.keyboard.tap(serverKey::capsLock);
  EXPECT_TRUE(works(keyA));
  world.keyboard.tap(serverKey::capsLock);
}

/// A window of ours that counts the keys it gets.
class KeyCounter final : public QObject {
public:
  KeyCounter() { qApp->installEventFilter(this); }
  int presses = 0;

private:
  bool eventFilter(QObject* watched, QEvent* event) override {
    const bool press = event->type() == QEvent::KeyPress && watched->isWindowType();
    if (press && static_cast<QKeyEvent*>(event)->key() == Qt::Key_1)
      ++presses;
    return false;
  }
};

/// The display repeats keys quickly.
struct QuickRepeats {
  QuickRepeats() { execute("xset", {"r", "rate", "20", "100"}); }
  ~QuickRepeats() { execute("xset", {"r", "rate"}); }
};

/// Returns when a key that is down has been repeated often.
void waitForRepeats() {
  QElapsedTimer held;
  held.start();
  EXPECT_TRUE(eventually([&] { return held.hasExpired(250); }));
}

TEST_F(LinuxHotKey, HeldForLongItIsReleasedOnce) {
  const QuickRepeats repeats;
  const auto key = add(keyOne, eventModifier::command).reference;
  world.down(keyOne, eventModifier::command);
  waitForRepeats();
  EXPECT_TRUE(told.events.empty()) << "still held";
  world.up(keyOne, eventModifier::command);
  EXPECT_THAT(references(), ::testing::ElementsAre(key));
}

TEST_F(LinuxHotKey, RepeatsQueuedWhenItGoesUpDoNotCount) {
  const QuickRepeats repeats;
  const auto key = add(keyOne, eventModifier::command).reference;
  world.down(keyOne, eventModifier::command);
  world.keyboard.holdAndRelease(serverKey::one, 200); // no event is read meanwhile
  world.up(keyOne, eventModifier::command);
  EXPECT_THAT(references(), ::testing::ElementsAre(key));
}

TEST_F(LinuxHotKey, PressedTwiceBeforeEventsAreReadItCountsTwice) {
  const auto key = add(keyOne, eventModifier::command).reference;
  world.press(keyOne, eventModifier::command);
  world.press(keyOne, eventModifier::command);
  EXPECT_THAT(references(), ::testing::ElementsAre(key, key));
  told.events.clear();
  world.press(keyOne, eventModifier::command);
  world.down(keyOne, eventModifier::command);
  EXPECT_TRUE(eventually([&] { return told.events.size() == 1; })) << "while it is held again";
  world.up(keyOne, eventModifier::command);
  EXPECT_THAT(references(), ::testing::ElementsAre(key, key));
}

/// Registers a hot key anew at each event, as one that is handed on does.
struct RegistersAnew final : EventTarget {
  RegistersAnew(HotKeys& all, EventHotKeyRef first) : hotKeys(all), reference(first) {}
  void sendEvent(const Event& event) override {
    answered.push_back(event.data1 == reference);
    (void)hotKeys.unregisterHotKey(reference);
    reference = hotKeys.registerHotKey(keyOne, eventModifier::command, {}).reference;
  }
  HotKeys& hotKeys;
  EventHotKeyRef reference;
  std::vector<bool> answered;
};

TEST_F(LinuxHotKey, ItsReleasesCountThoughItIsRegisteredAnewBeforeTheyAreTold) {
  RegistersAnew target(hotKeys, add(keyOne, eventModifier::command).reference);
  hotKeys.setEventTarget(&target);
  for (int time = 0; time < 3; ++time)
    world.press(keyOne, eventModifier::command); // all before any event is read
  EXPECT_TRUE(eventually([&] { return target.answered.size() == 3; })) << target.answered.size();
  EXPECT_THAT(target.answered, ::testing::Each(true));
  hotKeys.setEventTarget(&told);
}

TEST_F(LinuxHotKey, CountsAlsoWhenTheModifiersGoUpFirst) {
  const auto key = add(keyOne, eventModifier::command).reference;
  world.keyboard.down(serverKey::control);
  world.keyboard.down(serverKey::one);
  world.keyboard.up(serverKey::control);
  world.keyboard.up(serverKey::one);
  EXPECT_THAT(references(), ::testing::ElementsAre(key));
}

TEST_F(LinuxHotKey, ItsRepeatsDoNotReachAMenuThatOpensMeanwhile) {
  const QuickRepeats repeats;
  const auto key = add(keyOne, eventModifier::command).reference;
  world.down(keyOne, eventModifier::command);
  KeyCounter counter;
  QMenu menu;
  menu.addAction(QStringLiteral("1 entry"));
  menu.popup({100, 100});
  EXPECT_TRUE(eventually([&] { return menu.windowHandle()->isExposed(); }));
  waitForRepeats();
  EXPECT_TRUE(told.events.empty());
  EXPECT_EQ(counter.presses, 0);
  world.up(keyOne, eventModifier::command);
  EXPECT_TRUE(eventually([&] { return told.events.size() == 1; }));
  EXPECT_EQ(told.events[0].data1, key);
  world.keyboard.tap(serverKey::one);
  EXPECT_TRUE(eventually([&] { return counter.presses == 1; })) << "a key like any other again";
}

TEST_F(LinuxHotKey, AReleaseThatAnotherProgramGetsIsFoundAllTheSame) {
  const auto key = add(keyOne, eventModifier::command).reference;
  world.down(keyOne, eventModifier::command);
  {
    QMenu menu;
    menu.addAction(QStringLiteral("entry"));
    menu.popup({100, 100});
    EXPECT_TRUE(eventually([&] { return menu.windowHandle()->isExposed(); }));
  }
  EXPECT_TRUE(eventually([&] { return world.other.grabKeyboardAndPointer(); }));
  world.up(keyOne, eventModifier::command);
  EXPECT_TRUE(eventually([&] { return told.events.size() == 1; }));
  EXPECT_EQ(told.events[0].data1, key);
}

TEST_F(LinuxHotKey, AKeyHeldWhileItIsUnregisteredDoesNothing) {
  const auto key = add(keyOne, eventModifier::command);
  world.down(keyOne, eventModifier::command);
  QCoreApplication::processEvents();
  EXPECT_EQ(hotKeys.unregisterHotKey(key.reference), hotKeyStatus::registered);
  world.up(keyOne, eventModifier::command);
  EXPECT_THAT(references(), ::testing::IsEmpty());
}

// All are registered anew whenever one is handed on to the application.
TEST_F(LinuxHotKey, AKeyHeldWhileItIsRegisteredAnewActsUnderItsNewReference) {
  const QuickRepeats repeats;
  const auto key = add(keyOne, eventModifier::command);
  world.down(keyOne, eventModifier::command);
  waitForRepeats();
  EXPECT_EQ(hotKeys.unregisterHotKey(key.reference), hotKeyStatus::registered);
  const auto anew = add(keyOne, eventModifier::command).reference;
  waitForRepeats();
  world.up(keyOne, eventModifier::command);
  EXPECT_THAT(references(), ::testing::ElementsAre(anew));
  EXPECT_TRUE(works()) << "and works directly after";
}

TEST_F(LinuxHotKey, AKeystrokePostedWhileItIsUnregisteredReachesTheWindowInFrontOnce) {
  QWidget window;
  window.show();
  window.activateWindow();
  ASSERT_TRUE(eventually([&] { return window.isActiveWindow(); }));
  KeyCounter counter;
  FakeInput poster;
  ASSERT_TRUE(eventually([&] {
    poster.tap(serverKey::one);
    return eventually([&] { return counter.presses == 1; });
  })) << "the window has the keyboard";
  counter.presses = 0;
  auto key = add(keyOne, eventModifier::command);
  for (int round = 1; round <= 20; ++round) {
    EXPECT_EQ(hotKeys.unregisterHotKey(key.reference), hotKeyStatus::registered);
    poster.down(serverKey::control);
    poster.tap(serverKey::one);
    poster.up(serverKey::control);
    key = add(keyOne, eventModifier::command);
    EXPECT_TRUE(works()) << "directly after";
    EXPECT_TRUE(eventually([&] { return counter.presses >= round; })) << "in round " << round;
  }
  EXPECT_EQ(counter.presses, 20);
}

TEST(ServerModifiers, EverySubsetIsMadeOnce) {
  EXPECT_THAT(subsetsOf(0), ::testing::ElementsAre(0));
  EXPECT_THAT(subsetsOf(2 | 16), ::testing::UnorderedElementsAre(0, 2, 16, 18));
  EXPECT_EQ(subsetsOf(2 | 16 | 128).size(), 8U);
}

} // namespace
} // namespace tavrel
