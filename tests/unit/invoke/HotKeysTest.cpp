#include "support/CoreTest.h"
#include "support/FrontSelection.h"

namespace tavrel {
namespace {

class HotKeysOfTree : public ControllerTest {
protected:
  HotKeysOfTree() {
    desktop.files.control.addFile("/a.txt");
    set(TVR2_EnablePopupMenu, false);
  }

  static PropertyList item(const char* shortcut, int modifiers, int keyCode,
                           PropertyList::Dictionary more = {}) {
    more.insert({{TVR_MenuItemShortcutString, shortcut},
                 {TVR_MenuItemShortcutModifier, modifiers},
                 {TVR_MenuItemShortcutKeyCode, keyCode},
                 {TVR_MenuItemURL, "file:///a.txt"}});
    return record("document file", "Item", more);
  }

  void launch(PropertyList::Array tree) {
    setTree(std::move(tree));
    controller.applicationWillFinishLaunching();
  }

  /// Presses a hot key and forgets the copy keystrokes of its capture.
  void press(std::uint32_t keyCode, std::uint32_t modifiers) {
    desktop.hotKeys.press(keyCode, modifiers);
    EXPECT_EQ(posted().find("56 down"), std::string::npos) << "only copied so far";
    desktop.accessibility.control.posted.clear();
  }
  std::string posted() { return keysAsText(desktop.accessibility.control.posted); }

  MemoryHotKeys::Control& keys = desktop.hotKeys.control;
  std::vector<std::string>& opened = desktop.workspace.control.openedFiles;
  const PropertyList::Dictionary hidden{
      {"TVR_MenuItemInvokers", PropertyList::Array{"Somewhere else"}}};
};

TEST_F(HotKeysOfTree, CommandIsAlwaysThereAndShiftWithCapitals) {
  launch({item("a", 0, 0), item("A", 0, 0), item("b", 0x100000, 11), item("c", 0x40000, 8),
          item("d", 0xA0000, 2)});
  EXPECT_THAT(keys.log,
              ::testing::ElementsAre("register 0 0x100", "register 0 0x300", "register 11 0x100",
                                     "register 8 0x1100", "register 2 0xB00"));
}

TEST_F(HotKeysOfTree, AGroupsShortcutCountsOnlyWithoutChildren) {
  const auto group = [](PropertyList::Array children, int keyCode) {
    return item("g", 0, keyCode, {{TVR_MenuItemTree, std::move(children)}});
  };
  launch({group({item("a", 0, 0)}, 5), group({}, 6), item("b", 0, 11)});
  EXPECT_THAT(keys.log,
              ::testing::ElementsAre("register 0 0x100", "register 6 0x100", "register 11 0x100"));
}

TEST_F(HotKeysOfTree, WithoutAnApplicationInFrontNothingIsSelectedAndTheItemRuns) {
  launch({item("a", 0, 0)});
  capture({"/docs"});
  desktop.hotKeys.press(0, eventModifier::command);
  EXPECT_EQ(posted(), "");
  EXPECT_EQ(privatePasteboard().types(), std::vector<std::string>{pasteboardType::string});
  EXPECT_EQ(opened, std::vector<std::string>{"/a.txt"});
}

TEST_F(HotKeysOfTree, APasswordIsForgottenOnceTheItemHasRun) {
  launch({item("a", 0, 0)});
  answerCopy(desktop, copyPassword("hunter2"));
  EXPECT_TRUE(desktop.hotKeys.press(0, 0x100));
  EXPECT_EQ(privatePasteboard().string(pasteboardType::string), "");
  EXPECT_FALSE(isConcealed(privatePasteboard()));
}

TEST_F(HotKeysOfTree, WordsAreKeptAfterTheItemHasRun) {
  launch({item("a", 0, 0)});
  answerCopy(desktop, copyText("words"));
  EXPECT_TRUE(desktop.hotKeys.press(0, 0x100));
  EXPECT_EQ(privatePasteboard().string(pasteboardType::string), "words");
}

TEST_F(HotKeysOfTree, APasswordIsForgottenAlsoWhenTheKeystrokeIsHandedOn) {
  launch({item("a", 0, 0, hidden)});
  answerCopy(desktop, copyPassword("hunter2"));
  press(0, 0x100);
  EXPECT_EQ(privatePasteboard().string(pasteboardType::string), "");
}

TEST_F(HotKeysOfTree, AReleasedKeyRunsItsItem) {
  launch({item("a", 0, 0)});
  EXPECT_TRUE(desktop.hotKeys.press(0, 0x100));
  EXPECT_THAT(opened, ::testing::ElementsAre("/a.txt"));
  EXPECT_EQ(base.events.size(), 1U) << "and goes on to the base";
}

TEST_F(HotKeysOfTree, ARefusedKeyHasARecordThatNeverFires) {
  keys.refused.insert({0, 0x100});
  launch({item("a", 0, 0), item("b", 0, 11)});
  EXPECT_EQ(gHotkeyArray.size(), 2U);
  EXPECT_EQ(keys.registered.at(0).id.id, 1U);
  EXPECT_FALSE(controller.performHotkey(0));
  EXPECT_FALSE(controller.performHotkey(99));
  EXPECT_TRUE(opened.empty());
  controller.unregisterAllHotkeys();
  EXPECT_THAT(desktop.log.control.lines, ::testing::Contains("Failed to unregister hot key...."));
  EXPECT_TRUE(gHotkeyArray.empty());
}

TEST_F(HotKeysOfTree, IsKnownByItsSignatureNumberShortcutAndItem) {
  launch({item("a", 0, 0), item("b", 0, 11)});
  EXPECT_EQ(keys.registered.at(1).id, (EventHotKeyID{0x5456524D, 1, "b", "Item"}));
}

TEST_F(HotKeysOfTree, AHiddenItemsKeystrokeIsHandedOn) {
  launch({item("C", 0x80000, 8, hidden)});
  desktop.applications.control.start("Editor", "/Editor.app");
  press(8, 0xB00);
  desktop.clock.advance(0);
  EXPECT_EQ(posted(), "55 down, 56 down, 58 down, 8 'c' down, 8 'c' up, 55 up, 56 up, 58 up");
  EXPECT_EQ(keys.registered.at(0).id.id, 0U);
  EXPECT_THAT(keys.log,
              ::testing::ElementsAre("register 8 0xB00", "unregister 1", "register 8 0xB00"));
  EXPECT_TRUE(opened.empty());
}

TEST_F(HotKeysOfTree, OverOtherApplicationsThanTheFinderTheLastKeystrokeIsSentAgain) {
  set(TVR_OnlyWithFinder, true);
  launch({item("a", 0, 0)});
  desktop.applications.control.start("TextEdit", "/TextEdit.app");
  press(0, 0x100);
  desktop.clock.advance(0);
  EXPECT_EQ(posted(), "") << "there is none yet";
  gAppCharCode = 'x';
  gAppModifiers = eventModifier::control;
  press(0, 0x100);
  desktop.clock.advance(0);
  EXPECT_EQ(posted(), "59 down, 7 'x' down, 7 'x' up, 59 up");
  EXPECT_TRUE(opened.empty());
}

TEST_F(HotKeysOfTree, OverAnotherApplicationAnItemSendsTheKeystrokeThatWasHandedOnBefore) {
  launch({item("x", 0x40000, 7, hidden), item("a", 0, 0)});
  press(7, 0x1100);
  desktop.clock.advance(0);
  const std::string handedOn = posted();
  set(TVR_OnlyWithFinder, true);
  desktop.preferences.synchronize(preferenceDomain);
  desktop.applications.control.start("TextEdit", "/TextEdit.app");
  press(0, 0x100);
  desktop.clock.advance(0);
  EXPECT_EQ(posted(), handedOn);
  EXPECT_EQ(handedOn, "55 down, 59 down, 7 'x' down, 7 'x' up, 55 up, 59 up");
}

TEST_F(HotKeysOfTree, OverTheFinderAnItemRunsAlsoWhenOnlyThatCounts) {
  set(TVR_OnlyWithFinder, true);
  launch({item("a", 0, 0)});
  desktop.applications.control.start("Finder", "/Finder.app");
  EXPECT_TRUE(desktop.hotKeys.press(0, 0x100));
  EXPECT_THAT(opened, ::testing::ElementsAre("/a.txt"));
}

TEST_F(HotKeysOfTree, TheSelectionIsCopiedByAKeystrokeEvenInTheFinder) {
  launch({item("a", 0, 0)});
  const auto finder = desktop.applications.control.start("Finder", "/Finder.app");
  answerCopy(desktop, copyText("words"));
  desktop.hotKeys.press(0, 0x100);
  EXPECT_EQ(posted(), "55 down, 8 'c' down, 8 'c' up, 55 up");
  EXPECT_EQ(desktop.accessibility.control.posted.front().processIdentifier,
            finder.processIdentifier);
  EXPECT_EQ(state.hostName, "Finder");
}

TEST_F(HotKeysOfTree, NoHotKeyIsRegisteredWhileAKeystrokeIsHandedOn) {
  launch({item("c", 0, 8, hidden), item("a", 0, 0)});
  press(8, 0x100);
  std::vector<std::size_t> registered;
  desktop.accessibility.control.onPost = [&](const auto&) {
    registered.push_back(keys.registered.size());
  };
  desktop.clock.advance(0);
  EXPECT_THAT(registered, ::testing::ElementsAre(0U, 0U, 0U, 0U));
  EXPECT_EQ(keys.registered.size(), 2U);
}

TEST_F(HotKeysOfTree, AKeystrokeGoesToTheApplicationThatIsInFrontByThen) {
  launch({item("c", 0, 8, hidden)});
  press(8, 0x100);
  const auto later = desktop.applications.control.start("Later", "/Later.app");
  desktop.clock.advance(0);
  ASSERT_FALSE(desktop.accessibility.control.posted.empty());
  EXPECT_EQ(desktop.accessibility.control.posted.front().processIdentifier,
            later.processIdentifier);
}

TEST_F(HotKeysOfTree, ACharacterThatNoKeyIsNamedAfterIsNotHandedOn) {
  launch({item("é", 0, 8, hidden)});
  press(8, 0x100);
  desktop.clock.advance(0);
  EXPECT_EQ(posted(), "");
}

TEST_F(HotKeysOfTree, TheLowByteOfACharacterNamesTheKeyOfItsKeystroke) {
  launch({item("š", 0, 8, hidden)}); // U+0161, and "a" is 0x61
  press(8, 0x100);
  desktop.clock.advance(0);
  ASSERT_EQ(desktop.accessibility.control.posted.size(), 4U);
  const KeyboardEvent key = desktop.accessibility.control.posted[1].event;
  EXPECT_EQ(key.keyCode, 0);
  EXPECT_EQ(key.character, 0x161);
}

TEST_F(HotKeysOfTree, AKeystrokeIsHandedOnInThePlaceThatDvorakGivesIt) {
  desktop.keyboard.control.layoutIdentifier = "com.apple.keylayout.Dvorak";
  launch({item("j", 0, 8, hidden)});
  press(8, 0x100);
  desktop.clock.advance(0);
  EXPECT_EQ(posted(), "55 down, 8 'j' down, 8 'j' up, 55 up");
}

TEST_F(HotKeysOfTree, AHandOnOfAControllerThatIsGoneDoesNothing) {
  {
    TVController another(application);
    setTree({item("c", 0, 8, hidden)});
    another.applicationWillFinishLaunching();
    press(8, 0x100);
  }
  desktop.clock.advance(1);
  EXPECT_EQ(posted(), "");
  EXPECT_TRUE(keys.registered.empty());
}

TEST_F(HotKeysOfTree, OfTwoItemsWithOneShortcutTheFirstRuns) {
  desktop.files.control.addFile("/b.txt");
  launch({item("a", 0, 0), item("a", 0, 0, {{TVR_MenuItemURL, "file:///b.txt"}})});
  EXPECT_EQ(gHotkeyArray.size(), 2U);
  desktop.hotKeys.press(0, 0x100);
  EXPECT_EQ(opened.size(), 1U);
}

TEST_F(HotKeysOfTree, WithoutAKeyCodeTheLayoutsKeyOfTheCapitalIsTaken) {
  CharacterTables layout{0, "layout", {{}}};
  layout.tables[0][7] = 'X';
  desktop.keyboard.control.tables = layout;
  launch({record("document file", "Item", {{TVR_MenuItemShortcutString, "x"}})});
  EXPECT_THAT(keys.log, ::testing::ElementsAre("register 7 0x100"));
}

TEST_F(HotKeysOfTree, AnEmptyShortcutIsNone) {
  launch({item("", 0, 0)});
  EXPECT_TRUE(keys.log.empty());
}

TEST_F(HotKeysOfTree, AHotKeyRunsTheItemAsIfNoModifierWereHeld) {
  launch({item("a", 0, 0)});
  hold(keyCode::command);
  hold(keyCode::option);
  sOptionKeyPressed = true;
  desktop.hotKeys.press(0, 0x100);
  EXPECT_FALSE(sOptionKeyPressed);
  EXPECT_THAT(opened, ::testing::ElementsAre("/a.txt"));
}

TEST_F(HotKeysOfTree, OneOfSeveralIsTakenBack) {
  launch({item("a", 0, 0), item("b", 0, 11)});
  controller.unregisterHotKey(gHotkeyArray.at(0));
  ASSERT_EQ(gHotkeyArray.size(), 1U);
  EXPECT_EQ(gHotkeyArray[0].HotKeyChar, 'b');
  EXPECT_FALSE(desktop.hotKeys.press(0, 0x100));
}

TEST_F(HotKeysOfTree, OfSeveralRefusedOnesOneIsTakenBack) {
  keys.refused = {{0, 0x100}, {11, 0x100}};
  launch({item("a", 0, 0), item("b", 0, 11)});
  controller.unregisterHotKey(gHotkeyArray.at(1));
  ASSERT_EQ(gHotkeyArray.size(), 1U);
  EXPECT_EQ(gHotkeyArray[0].HotKeyChar, 'a');
}

TEST_F(HotKeysOfTree, AKeyThatTheDesktopKeepsIsLoggedAndForgotten) {
  launch({item("a", 0, 0)});
  keys.refusesToUnregister = true;
  controller.unregisterAllHotkeys();
  EXPECT_THAT(desktop.log.control.lines,
              ::testing::ElementsAre("Failed to unregister hot key...."));
  EXPECT_TRUE(gHotkeyArray.empty());
  keys.refusesToUnregister = false;
}

TEST_F(HotKeysOfTree, TheDefaultPopupKeyOpensThePopup) {
  set(TVR2_EnablePopupMenu, true);
  set(TVR2_PopupStartType, 0);
  launch({});
  EXPECT_THAT(keys.log, ::testing::ElementsAre("register 18 0x900"));
  desktop.hotKeys.press(18, 0x900);
  EXPECT_EQ(desktop.presenter.control.shown.size(), 1U);
  EXPECT_FALSE(controller.performHotkey(gHotkeyArray.at(0).HotKeyRef)) << "no item has run";
}

} // namespace
} // namespace tavrel
