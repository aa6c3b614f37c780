#include "platform/linux/menus/EntryDescription.h"

#include "exec/ItemAction.h"

#include <gtest/gtest.h>

namespace tavrel {
namespace {

constexpr const char* opensFile = "Opens the file; with Ctrl, shows it in its folder";

std::string described(const MenuItem& item) {
  return entryDescription(item, [](const std::string& text) { return text; });
}

std::string described(MenuAction action, const EntryEffects& effects) {
  return described({.action = action, .effects = effects});
}

std::string ofFile(const ItemChoice& choice) {
  return described(MenuAction::fileItemDidSelected, effectsOf(actionForBrowsedFile, choice));
}

TEST(EntryDescription, TellsWhatTheCoreDecidesForABrowsedFile) {
  EXPECT_EQ(ofFile({.type = ItemType::documentFile}), opensFile);
  EXPECT_EQ(ofFile({.type = ItemType::folder}), opensFile);
  EXPECT_EQ(ofFile({.type = ItemType::folder, .alternate = true}),
            "Moves the selected files into this folder; without any, opens it");
}

TEST(EntryDescription, IsSilentAboutAFolderThatCtrlOpensInATerminal) {
  EXPECT_EQ(ofFile({.type = ItemType::folder, .terminalWithCommand = true}), "");
}

TEST(EntryDescription, TellsWhatTheCoreDecidesForAnAlternateOfTheTree) {
  const EntryEffects effects =
      effectsOf(actionForItem, {.type = ItemType::folder, .alternate = true, .plainFolder = true});
  EXPECT_EQ(described(MenuAction::statusMenuDidSelected, effects),
            "Moves the selected files into this folder");
}

TEST(EntryDescription, TellsWhatTheCoreDecidesForRecentItemsAndApplications) {
  EXPECT_EQ(described(MenuAction::recentItemSelected, effectsOf(actionForRecentItem, {})),
            "Opens the recent item; with Ctrl, shows it in its folder");
  EXPECT_EQ(
      described(MenuAction::recentItemSelected, effectsOf(actionForRecentItem, {.isServer = true})),
      "Opens the server");
  EXPECT_EQ(described(MenuAction::processItemSelected, effectsOf(actionForApplication, {})),
            "Comes to the front; with Alt, quits; with Ctrl, is shown in its folder");
}

TEST(EntryDescription, TellsOfASubmenuBeforeAnythingElse) {
  MenuItem item{.action = MenuAction::fileItemDidSelected, .submenu = std::make_shared<Menu>()};
  EXPECT_EQ(described(item), "Opens the folder; its submenu lists what is inside");
  item.action = MenuAction::none;
  EXPECT_EQ(described(item), "Opens a submenu");
}

TEST(EntryDescription, IsEmptyWhereTheTitleSaysAll) {
  EXPECT_EQ(described({.action = MenuAction::statusMenuDidSelected}), "");
  EXPECT_EQ(described({.action = MenuAction::openTavrelPref}), "");
  EXPECT_EQ(described({.isSeparator = true}), "");
  const EntryEffects effects = effectsOf(actionForRecentItem, {});
  EXPECT_EQ(
      described({.action = MenuAction::recentItemSelected, .enabled = false, .effects = effects}),
      "");
}

} // namespace
} // namespace tavrel
