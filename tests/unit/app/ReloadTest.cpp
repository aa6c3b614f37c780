#include "support/CoreTest.h"

namespace tavrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Reload : public ControllerTest {
protected:
  void launch() { controller.applicationWillFinishLaunching(); }

  void notify(const std::string& name = "changed", PropertyList::Dictionary userInfo = {}) {
    desktop.distributedNotifications.post({name, preferenceDomain, std::move(userInfo)});
    desktop.distributedNotifications.deliverPending();
  }

  void tapAt(double time) {
    desktop.clock.control.now = time;
    hold(keyCode::command);
    desktop.keyboard.control.eventModifiers = eventModifier::command;
    desktop.clock.control.onSleep = [this](double) { desktop.keyboard.control.down = {}; };
    desktop.eventMonitor.modifiersChanged(desktop.clock.now());
    desktop.keyboard.control.down = {};
    desktop.keyboard.control.eventModifiers = 0;
    desktop.eventMonitor.modifiersChanged(desktop.clock.now());
  }

  void tapCommandTwice() {
    tapAt(10);
    tapAt(10.2);
  }

  std::size_t statusItems() { return desktop.statusBar.control.items.size(); }
};

TEST_F(Reload, EverySettingIsReadAnew) {
  launch();
  for (const char* key : {"TVR_DoFolderBrowsing", "TVR_ShowRunningMenu", "TVR_DisplayIcons",
                          "TVR_ShowRecentItems", "TVR2_EnablePopupMenu", "TVR2_EnableContextMenu"})
    set(key, false);
  set("TVR_DoBrowsePackage", true);
  set("TVR2_PopupStartType", 0);
  notify();
  const Settings& settings = state.settings;
  EXPECT_FALSE(settings.browseFolder || settings.showProcessMenu || settings.showRecentItems);
  EXPECT_FALSE(settings.enablePopupMenu || settings.enableContextMenu || showIcon);
  EXPECT_TRUE(settings.browsePackage);
  EXPECT_EQ(settings.popupSartType, 0);
}

TEST_F(Reload, AMissingValueComesToItsDefaultAgain) {
  set(TVR_DoFolderBrowsing, false);
  launch();
  desktop.preferences.control.store[preferenceDomain].clear();
  notify();
  EXPECT_TRUE(state.settings.browseFolder);
  EXPECT_FALSE(state.menuRootArray);
}

TEST_F(Reload, TheDomainIsSynchronisedOnceBeforeAnythingIsRead) {
  launch();
  desktop.preferences.control.synchronized.clear();
  notify();
  EXPECT_THAT(desktop.preferences.control.synchronized, ElementsAre(preferenceDomain));
}

TEST_F(Reload, RecentItemsStayOffBeforeTenFour) {
  desktop.workspace.control.systemVersion = 0x1039;
  launch();
  set(TVR_ShowRecentItems, true);
  notify();
  EXPECT_FALSE(state.settings.showRecentItems);
}

TEST_F(Reload, ALongPressKeepsItsIntervalOnlyWhileItIsTheWayIn) {
  launch();
  set(TVR_LongPressInterval, 0.8);
  set(TVR2_PopupStartType, 2);
  notify();
  EXPECT_EQ(state.settings.longPressInterval, 0.8F);
  set(TVR2_EnablePopupMenu, false);
  notify();
  EXPECT_EQ(state.settings.longPressInterval, 0.0F);
}

TEST_F(Reload, TheMenuIsBuiltAnewAtOnce) {
  launch();
  setTree({record("url", "New", {{TVR_MenuItemURL, "http://a.b"}})});
  state.needToRecreateMenu = true;
  notify();
  EXPECT_FALSE(state.needToRecreateMenu);
  EXPECT_THAT(menuText(state.statusMenu, MenuTextDetail::visibleRows), ::testing::HasSubstr("New"));
  EXPECT_EQ(&state.statusMenu, desktop.statusBar.control.items[0]->menu);
}

TEST_F(Reload, TurningTheStatusItemOffRemovesItAtOnceAndOnMakesANewOne) {
  launch();
  set(TVR2_EnableStatusMenuBar, false);
  notify();
  EXPECT_EQ(statusItems(), 0U);
  set(TVR2_EnableStatusMenuBar, true);
  notify();
  EXPECT_EQ(statusItems(), 1U);
}

TEST_F(Reload, FromDoubleTapToHotKeyThePopupChangesItsWayIn) {
  set(TVR2_PopupShortcutString, "x");
  set(TVR2_PopupShortcutKeyCode, 7);
  launch();
  EXPECT_THAT(gHotkeyArray, IsEmpty());
  set(TVR2_PopupStartType, 0);
  notify();
  EXPECT_EQ(gHotkeyArray.size(), 1U);
  tapCommandTwice();
  EXPECT_THAT(desktop.notifications.control.posted, IsEmpty());
}

TEST_F(Reload, ADoubleTapThatStaysIsAnnouncedOnce) {
  launch();
  notify();
  tapCommandTwice();
  EXPECT_EQ(desktop.notifications.control.posted.size(), 1U);
}

TEST_F(Reload, TheTappedKeyIsTheOneNamedNow) {
  launch();
  set(TVR_DoubleTapKeyCode, 58);
  notify();
  tapCommandTwice();
  EXPECT_THAT(desktop.notifications.control.posted, IsEmpty());
}

TEST_F(Reload, WithoutAStoredShortcutThereIsNoPopupHotKeyAlthoughALaunchInstallsOne) {
  set(TVR2_PopupStartType, 0);
  launch();
  EXPECT_EQ(gHotkeyArray.size(), 1U);
  notify();
  EXPECT_THAT(gHotkeyArray, IsEmpty());
  EXPECT_FALSE(state.settings.popupShortcutString);
  EXPECT_EQ(state.settings.popupShortcutModifier, 0);
  EXPECT_EQ(state.settings.popupShortcutKeyCode, 0);
}

TEST_F(Reload, TheHotKeysOfTheOldTreeAreGone) {
  setTree({record("url", "Old",
                  {{TVR_MenuItemShortcutString, "o"},
                   {TVR_MenuItemShortcutModifier, 0x100000},
                   {TVR_MenuItemShortcutKeyCode, 31}})});
  launch();
  EXPECT_EQ(gHotkeyArray.size(), 1U);
  setTree({});
  notify();
  EXPECT_THAT(gHotkeyArray, IsEmpty());
  EXPECT_THAT(desktop.hotKeys.control.registered, IsEmpty());
}

TEST_F(Reload, NeitherNameNorUserInformationMatters) {
  launch();
  for (const char* name : {"", "execScript", "anything at all"}) {
    desktop.preferences.control.synchronized.clear();
    notify(name, {{"path", 7}, {"nested", PropertyList::Array{1, 2}}});
    EXPECT_THAT(desktop.preferences.control.synchronized, ElementsAre(preferenceDomain)) << name;
  }
}

TEST_F(Reload, ANotificationOfAnotherSenderChangesNothing) {
  launch();
  desktop.preferences.control.synchronized.clear();
  desktop.distributedNotifications.post({"changed", "qorvane.tavrel.prefs", {}});
  desktop.distributedNotifications.post({"changed", std::nullopt, {}});
  desktop.distributedNotifications.deliverPending();
  EXPECT_THAT(desktop.preferences.control.synchronized, IsEmpty());
}

// A script that waits for the person lets messages in.
TEST_F(Reload, InTheMiddleOfAnItemsScriptItLeavesTheItemWhole) {
  desktop.files.control.addScript("/s.scpt");
  setTree({fileRecord("applescript", "Script", "file:///s.scpt")});
  launch();
  desktop.scripts.control.files["/s.scpt"].body = [this](auto&) {
    setTree({});
    set(TVR2_EnableStatusMenuBar, false);
    notify();
    return osaError::none;
  };
  desktop.presenter.control.person = [](OpenMenu& menu) { menu.choose({"Script"}); };
  desktop.statusBar.click();
  EXPECT_THAT(desktop.scripts.control.ran, ElementsAre("/s.scpt"));
  EXPECT_EQ(statusItems(), 0U);
  EXPECT_EQ(state.settings.enableStatusMenuBar, false);
}

TEST_F(Reload, InTheMiddleOfAHotKeysScriptItLeavesTheKeysInOrder) {
  desktop.files.control.addScript("/s.scpt");
  PropertyList::Dictionary item{{TVR_MenuItemURL, "file:///s.scpt"},
                                {TVR_MenuItemShortcutString, "o"},
                                {TVR_MenuItemShortcutModifier, 0x100000},
                                {TVR_MenuItemShortcutKeyCode, 31}};
  setTree({record("applescript", "Script", item)});
  launch();
  desktop.scripts.control.files["/s.scpt"].body = [this](auto&) {
    notify();
    return osaError::none;
  };
  EXPECT_TRUE(desktop.hotKeys.press(31, eventModifier::command));
  EXPECT_EQ(desktop.scripts.control.ran.size(), 1U);
  EXPECT_EQ(gHotkeyArray.size(), 1U);
}

TEST_F(Reload, AControllerThatIsGoneIsToldNothing) {
  {
    TVController another(application);
    another.applicationWillFinishLaunching();
  }
  desktop.preferences.control.synchronized.clear();
  notify();
  EXPECT_THAT(desktop.preferences.control.synchronized, IsEmpty());
}

} // namespace
} // namespace tavrel
