#include "bridge/BridgeMessage.h"
#include "controller/Gestures.h"
#include "controller/PreferenceStore.h"
#include "controller/SettingKeys.h"
#include "invoke/NTModifierKeyActionHandler.h"
#include "menu/ItemRecord.h"
#include "menu/MenuTitles.h"
#include "menu/RecentItems.h"
#include "selection/PasteboardCopy.h"
#include "selection/PrivatePasteboard.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

// Names that stand in the files people have, or that other programs use: none may change.

namespace tavrel {
namespace {

using Names = std::vector<std::pair<std::string_view, std::string_view>>;

void expectNames(const Names& names) {
  for (const auto& [ours, theirs] : names)
    EXPECT_EQ(ours, theirs);
}

TEST(StoredNames, SettingsAreKeptUnderTheNamesThatPreferenceFilesHave) {
  EXPECT_STREQ(preferenceDomain, "qorvane.tavrel.pref");
  expectNames({{TVR_MenuTree, "TVR_MenuTree"},
               {TVR_DoFolderBrowsing, "TVR_DoFolderBrowsing"},
               {TVR_DoBrowsePackage, "TVR_DoBrowsePackage"},
               {TVR_ShowRunningMenu, "TVR_ShowRunningMenu"},
               {TVR_DisplayIcons, "TVR_DisplayIcons"},
               {TVR_ShowRecentItems, "TVR_ShowRecentItems"},
               {TVR_DoTavrelSetting, "TVR_DoTavrelSetting"},
               {TVR_LongPressInterval, "TVR_LongPressInterval"},
               {TVR2_EnablePopupMenu, "TVR2_EnablePopupMenu"},
               {TVR2_EnableContextMenu, "TVR2_EnableContextMenu"},
               {TVR2_EnableStatusMenuBar, "TVR2_EnableStatusMenuBar"},
               {TVR2_PopupStartType, "TVR2_PopupStartType"},
               {TVR2_PopupShortcutString, "TVR2_PopupShortcutString"},
               {TVR2_PopupShortcutModifier, "TVR2_PopupShortcutModifier"},
               {TVR2_PopupShortcutKeyCode, "TVR2_PopupShortcutKeyCode"},
               {TVR2_OpenTerminalWithCmdKey, "TVR2_OpenTerminalWithCmdKey"},
               {TVR_DoubleTapKeyCode, "TVR_DoubleTapKeyCode"},
               {TVR_OnlyWithFinder, "TVR_OnlyWithFinder"},
               {TVR_LongPressSound, "TVR_LongPressSound"},
               {TVR_SmallFontSize, "TVR_SmallFontSize"},
               {TVR_OpenWithPathFinder, "TVR_OpenWithPathFinder"},
               {TVR_OnlineUpdateCheck, "TVR_OnlineUpdateCheck"},
               {TVR_LastUpdateCheck, "TVR_LastUpdateCheck"},
               {TVR_VersionString, "TVR_VersionString"}});
}

TEST(StoredNames, RecordsAreKeptUnderTheNamesThatMenuTreesHave) {
  expectNames({{TVR_MenuItemType, "TVR_MenuItemType"},
               {TVR_MenuItemTitle, "TVR_MenuItemTitle"},
               {TVR_MenuItemURL, "TVR_MenuItemURL"},
               {TVR_MenuItemBookmark, "TVR_MenuItemBookmark"},
               {TVR_MenuItemPath, "TVR_MenuItemPath"},
               {TVR_MenuItemIcon, "TVR_MenuItemIcon"},
               {TVR_MenuItemTree, "TVR_MenuItemTree"},
               {TVR_MenuItemShortcutString, "TVR_MenuItemShortcutString"},
               {TVR_MenuItemShortcutModifier, "TVR_MenuItemShortcutModifier"},
               {TVR_MenuItemShortcutKeyCode, "TVR_MenuItemShortcutKeyCode"},
               {TVR_MenuItemInvokers, "TVR_MenuItemInvokers"},
               {TVR_MenuItemSelectionTypes, "TVR_MenuItemSelectionTypes"},
               {TVR_MenuItemOpenType, "TVR_MenuItemOpenType"}});
}

TEST(StoredNames, SubmenusThatAreFilledAsTheyOpenAreKnownByTheirTitles) {
  expectNames({{groupMenuTitle, "group"},
               {processMenuTitle, "TVRM_ProcessMenu"},
               {recentMenuTitle, "TVRM_RecentMenu"}});
}

TEST(StoredNames, OtherProgramsAreHeardByTheirNames) {
  EXPECT_STREQ(contextMenuSender, "qorvane.tavrel.cm");
  EXPECT_STREQ(doubleTapName, "TVR_TheKeyDoubleTapped");
  EXPECT_STREQ(NTModifierKeyActionHandler::sender, "NTModifierKeyActionHandler");
  EXPECT_STREQ(recentItemsDomain, "com.apple.recentitems");
  EXPECT_STREQ(TVRMenuPboardType, "TVRMenuPboardType");
  EXPECT_STREQ(TVRBackupPboard, "TVRBackupPboard");
}

} // namespace
} // namespace tavrel
