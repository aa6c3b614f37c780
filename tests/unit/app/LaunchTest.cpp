#include "support/CoreTest.h"

namespace tavrel {
namespace {

using Launch = ControllerTest;

TEST_F(Launch, AnEmptyStoreYieldsEveryDefault) {
  controller.applicationWillFinishLaunching();
  const Settings& settings = state.settings;
  EXPECT_TRUE(settings.browseFolder && settings.showProcessMenu && settings.showRecentItems);
  EXPECT_TRUE(settings.enablePopupMenu && settings.enableContextMenu);
  EXPECT_TRUE(settings.enableStatusMenuBar && showIcon);
  EXPECT_FALSE(settings.browsePackage);
  EXPECT_EQ(settings.popupSartType, 1);
  EXPECT_EQ(settings.longPressInterval, 0.0F);
  EXPECT_FALSE(state.menuRootArray);
}

TEST_F(Launch, SettingsThatNobodyHasReadAreThoseOfAnEmptyStore) {
  const Settings unread;
  const Settings empty = readSettings();
  for (const auto& field :
       {&Settings::browseFolder, &Settings::browsePackage, &Settings::showProcessMenu,
        &Settings::showRecentItems, &Settings::enablePopupMenu, &Settings::enableContextMenu,
        &Settings::enableStatusMenuBar})
    EXPECT_EQ(unread.*field, empty.*field);
  EXPECT_EQ(unread.popupSartType, empty.popupSartType);
  EXPECT_EQ(unread.popupShortcutString, empty.popupShortcutString);
  EXPECT_EQ(unread.popupShortcutModifier, empty.popupShortcutModifier);
  EXPECT_EQ(unread.popupShortcutKeyCode, empty.popupShortcutKeyCode);
  EXPECT_EQ(unread.longPressInterval, empty.longPressInterval);
}

TEST_F(Launch, AHotKeyLeftFromBeforeIsForgottenAndNotTakenBack) {
  gHotkeyArray.emplace_back().HotKeyRef = 7;
  controller.applicationWillFinishLaunching();
  EXPECT_THAT(desktop.log.control.lines, ::testing::IsEmpty());
  EXPECT_TRUE(gHotkeyArray.empty());
}

TEST_F(Launch, EverySettingIsReadUnderItsName) {
  for (const char* key :
       {"TVR_DoFolderBrowsing", "TVR_ShowRunningMenu", "TVR_DisplayIcons", "TVR_ShowRecentItems",
        "TVR2_EnablePopupMenu", "TVR2_EnableContextMenu", "TVR2_EnableStatusMenuBar"})
    set(key, false);
  set("TVR_DoBrowsePackage", true);
  set("TVR2_PopupStartType", 0);
  set("TVR2_PopupShortcutString", "x");
  set("TVR2_PopupShortcutModifier", 0x20000);
  set("TVR2_PopupShortcutKeyCode", 7);
  controller.applicationWillFinishLaunching();
  const Settings& settings = state.settings;
  EXPECT_FALSE(settings.browseFolder || settings.showProcessMenu || settings.showRecentItems);
  EXPECT_FALSE(settings.enablePopupMenu || settings.enableContextMenu);
  EXPECT_FALSE(settings.enableStatusMenuBar || showIcon);
  EXPECT_TRUE(settings.browsePackage);
  EXPECT_EQ(settings.popupSartType, 0);
  EXPECT_EQ(settings.popupShortcutString, "x");
  EXPECT_EQ(settings.popupShortcutModifier, 0x20000);
  EXPECT_EQ(settings.popupShortcutKeyCode, 7);
}

// Each setting alone, so that none can be read in place of another.
TEST_F(Launch, ASwitchChangesNothingButItself) {
  const std::vector<std::pair<const char*, bool Settings::*>> switches{
      {"TVR_DoFolderBrowsing", &Settings::browseFolder},
      {"TVR_ShowRunningMenu", &Settings::showProcessMenu},
      {"TVR_ShowRecentItems", &Settings::showRecentItems},
      {"TVR2_EnablePopupMenu", &Settings::enablePopupMenu},
      {"TVR2_EnableContextMenu", &Settings::enableContextMenu},
      {"TVR2_EnableStatusMenuBar", &Settings::enableStatusMenuBar}};
  for (const auto& [key, field] : switches) {
    desktop.preferences.control.store[preferenceDomain] = {{key, false}};
    desktop.preferences.synchronize(preferenceDomain);
    const Settings settings = readSettings();
    for (const auto& [otherKey, other] : switches)
      EXPECT_EQ(settings.*other, other != field) << key << " as " << otherKey;
  }
}

TEST_F(Launch, WithoutAStoredShortcutThePopupIsCommandOptionOne) {
  controller.applicationWillFinishLaunching();
  EXPECT_EQ(state.settings.popupShortcutString, "1");
  EXPECT_EQ(state.settings.popupShortcutModifier, 0x180000);
  EXPECT_EQ(state.settings.popupShortcutKeyCode, 18);
}

TEST_F(Launch, AStoredShortcutStaysWithTheModifiersThatAreThere) {
  set(TVR2_PopupShortcutString, "x");
  controller.applicationWillFinishLaunching();
  EXPECT_EQ(state.settings.popupShortcutString, "x");
  EXPECT_EQ(state.settings.popupShortcutModifier, 0);
}

TEST_F(Launch, ALongPressIntervalCountsOnlyForALongPress) {
  set(TVR_LongPressInterval, 0.8);
  set(TVR2_PopupStartType, 1);
  controller.applicationWillFinishLaunching();
  EXPECT_EQ(state.settings.longPressInterval, 0.0F);
}

TEST_F(Launch, ALongPressKeepsItsInterval) {
  set(TVR_LongPressInterval, 0.8);
  set(TVR2_PopupStartType, 2);
  controller.applicationWillFinishLaunching();
  EXPECT_EQ(state.settings.longPressInterval, 0.8F);
}

TEST_F(Launch, ALongPressOfADisabledPopupHasNoInterval) {
  set(TVR_LongPressInterval, 0.8);
  set(TVR2_PopupStartType, 2);
  set(TVR2_EnablePopupMenu, false);
  controller.applicationWillFinishLaunching();
  EXPECT_EQ(state.settings.longPressInterval, 0.0F);
}

TEST_F(Launch, RecentItemsAreOffBeforeTenFourWhateverTheSettingSays) {
  set(TVR_ShowRecentItems, true);
  desktop.workspace.control.systemVersion = 0x1039;
  controller.applicationWillFinishLaunching();
  EXPECT_FALSE(state.settings.showRecentItems);
}

TEST_F(Launch, RecentItemsAreOnFromTenFourOn) {
  desktop.workspace.control.systemVersion = 0x1040;
  controller.applicationWillFinishLaunching();
  EXPECT_TRUE(state.settings.showRecentItems);
}

TEST_F(Launch, RecentItemsFollowTheSetting) {
  set(TVR_ShowRecentItems, false);
  desktop.workspace.control.systemVersion = 0x1040;
  controller.applicationWillFinishLaunching();
  EXPECT_FALSE(state.settings.showRecentItems);
}

TEST_F(Launch, ADisabledStatusItemStillHasItsMenu) {
  set(TVR2_EnableStatusMenuBar, false);
  controller.applicationWillFinishLaunching();
  EXPECT_TRUE(desktop.statusBar.control.items.empty());
  EXPECT_FALSE(state.statusMenu.items.empty());
}

TEST_F(Launch, TheStatusItemShowsTheMenuThatTheControllerPrepares) {
  controller.applicationWillFinishLaunching();
  ASSERT_EQ(desktop.statusBar.control.items.size(), 1U);
  EXPECT_EQ(desktop.statusBar.control.items[0]->menu, &state.statusMenu);
  EXPECT_EQ(desktop.statusBar.control.items[0]->length, -1.0);
  EXPECT_TRUE(desktop.statusBar.control.items[0]->highlight);
  EXPECT_EQ(state.statusMenu.delegate, &controller);
}

TEST_F(Launch, TheStatusItemIsThereBeforeTheFirstHotKey) {
  set("TVR2_PopupStartType", 0);
  std::vector<std::size_t> items;
  desktop.hotKeys.control.onRegister = [&] {
    items.push_back(desktop.statusBar.control.items.size());
  };
  controller.applicationWillFinishLaunching();
  EXPECT_THAT(items, ::testing::ElementsAre(1)) << "the hot key of the pop-up";
}

TEST_F(Launch, ThePanelIsUnseen) {
  controller.applicationWillFinishLaunching();
  EXPECT_FALSE(state.popupPanel.visible);
  EXPECT_FALSE(state.popupPanel.opaque);
  EXPECT_EQ(state.popupPanel.alpha, 0.0);
}

TEST_F(Launch, TheRolesThatCountAsNoTargetAreListedInOrder) {
  controller.applicationWillFinishLaunching();
  EXPECT_THAT(state.excludeUIElements,
              ::testing::ElementsAre("AXValueIndicator", "AXDockItem", "AXButton", "AXToolbar",
                                     "AXMenuItem", "AXMenuBarItem"));
}

TEST_F(Launch, IconsAreSizedForMenusAndBadgesAreNot) {
  for (const char* name : {"servicesIcon", "urlIcon", "prefIcon", "AddToTVRM", "serverIcon",
                           "blankIcon", "services_badge", "move_badge"})
    desktop.images.control.resources[name] = {32, 32};
  controller.applicationWillFinishLaunching();
  for (const auto* icon :
       {&state.images.servicesIcon, &state.images.urlIcon, &state.images.prefIcon,
        &state.images.addToTVRMIcon, &serverIcon, &blankIcon})
    EXPECT_EQ(icon->value().size, menuIconSize);
  EXPECT_EQ(state.images.move_badge_image.value().size, (Size{32, 32}));
  EXPECT_EQ(state.images.service_mark_image.value().size, (Size{32, 32}));
}

TEST_F(Launch, AMissingImageLeavesItsPlaceEmpty) {
  controller.applicationWillFinishLaunching();
  EXPECT_FALSE(state.images.prefIcon);
  EXPECT_FALSE(blankIcon);
}

TEST_F(Launch, TheControllerTakesItsStatusItemWithIt) {
  {
    TVController another(application);
    another.applicationWillFinishLaunching();
    EXPECT_EQ(desktop.statusBar.control.items.size(), 1U);
  }
  EXPECT_TRUE(desktop.statusBar.control.items.empty());
}

TEST_F(Launch, TheControllerProvidesServicesForAsLongAsItLives) {
  {
    TVController another(application);
    another.applicationWillFinishLaunching();
    EXPECT_EQ(desktop.services.control.provider, nullptr);
    another.applicationDidFinishLaunching();
    EXPECT_EQ(desktop.services.control.provider, &another);
  }
  EXPECT_EQ(desktop.services.control.provider, nullptr);
}

TEST_F(Launch, TheControllerTakesTheSharedIconsWithIt) {
  for (const char* name : {"serverIcon", "blankIcon"})
    desktop.images.control.resources[name] = {32, 32};
  {
    TVController another(application);
    another.applicationWillFinishLaunching();
    EXPECT_TRUE(serverIcon && blankIcon);
  }
  EXPECT_FALSE(serverIcon || blankIcon);
  desktop.images.control.named.clear();
  controller.applicationWillFinishLaunching();
  EXPECT_THAT(desktop.images.control.named, ::testing::IsSupersetOf({"serverIcon", "blankIcon"}));
}

} // namespace
} // namespace tavrel
