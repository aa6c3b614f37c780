#include "exec/ItemAction.h"

#include <gtest/gtest.h>

namespace tavrel {
namespace {

ItemChoice choiceOf(ItemType type) {
  return {.type = type};
}

ItemChoice withCommand(ItemChoice choice) {
  choice.commandHeld = true;
  return choice;
}

ItemChoice withOption(ItemChoice choice) {
  choice.optionHeld = true;
  return choice;
}

ItemChoice withFiles(ItemChoice choice) {
  choice.filesCaptured = true;
  return choice;
}

ItemChoice fromHotKey(ItemChoice choice) {
  choice.fromHotKey = true;
  return choice;
}

ItemChoice asAlternate(ItemChoice choice) {
  choice.alternate = true;
  return choice;
}

ItemChoice asPlainFolder(ItemChoice choice) {
  choice.plainFolder = true;
  return choice;
}

ItemChoice withTerminalSetting(ItemChoice choice) {
  choice.terminalWithCommand = true;
  return choice;
}

const ItemChoice anApplication = choiceOf(ItemType::application);
const ItemChoice documentFile = choiceOf(ItemType::documentFile);
const ItemChoice package = choiceOf(ItemType::package);
const ItemChoice aFolder = choiceOf(ItemType::folder);
const ItemChoice script = choiceOf(ItemType::appleScript);

TEST(ActionForItem, ADocumentOpensAndCommandRevealsIt) {
  for (const ItemChoice& choice : {documentFile, package}) {
    EXPECT_EQ(actionForItem(choice), ItemAction::openFile);
    EXPECT_EQ(actionForItem(withCommand(choice)), ItemAction::showInFinder);
    EXPECT_EQ(actionForItem(withOption(choice)), ItemAction::openFile);
  }
}

TEST(ActionForItem, APackageThatBecameAFolderIsOpenedAsAFolderEvenWithCommand) {
  EXPECT_EQ(actionForItem(asPlainFolder(package)), ItemAction::openFolder);
  EXPECT_EQ(actionForItem(withCommand(asPlainFolder(package))), ItemAction::openFolder);
}

TEST(ActionForItem, AFolderOpensAndCommandRevealsItOrOpensATerminal) {
  EXPECT_EQ(actionForItem(aFolder), ItemAction::openFolder);
  EXPECT_EQ(actionForItem(withCommand(aFolder)), ItemAction::showInFinder);
  EXPECT_EQ(actionForItem(withTerminalSetting(withCommand(aFolder))),
            ItemAction::openFolderWithTerminal);
  EXPECT_EQ(actionForItem(withTerminalSetting(aFolder)), ItemAction::openFolder);
}

TEST(ActionForItem, TheAlternateOfAFolderMovesFilesWhetherAnyWereCapturedOrNot) {
  EXPECT_EQ(actionForItem(asAlternate(aFolder)), ItemAction::moveSelectedFiles);
  EXPECT_EQ(actionForItem(withFiles(asAlternate(aFolder))), ItemAction::moveSelectedFiles);
  EXPECT_EQ(actionForItem(withCommand(asAlternate(aFolder))), ItemAction::moveSelectedFiles);
}

TEST(ActionForItem, AUrlAndAServiceHaveNoVariants) {
  EXPECT_EQ(actionForItem(withCommand(withOption(choiceOf(ItemType::url)))), ItemAction::openUrl);
  EXPECT_EQ(actionForItem(withCommand(withOption(choiceOf(ItemType::services)))),
            ItemAction::performService);
}

TEST(ActionForItem, AScriptRunsAndOptionOpensItInItsEditor) {
  EXPECT_EQ(actionForItem(script), ItemAction::execScript);
  EXPECT_EQ(actionForItem(withOption(script)), ItemAction::openFile);
  EXPECT_EQ(actionForItem(withCommand(script)), ItemAction::showInFinder);
  EXPECT_EQ(actionForItem(withCommand(withOption(script))), ItemAction::openFile);
}

TEST(ActionForItem, AnApplicationGetsTheCapturedFilesUnlessOptionIsHeld) {
  EXPECT_EQ(actionForItem(anApplication), ItemAction::openFile);
  EXPECT_EQ(actionForItem(withFiles(anApplication)), ItemAction::openSelectedFiles);
  EXPECT_EQ(actionForItem(withOption(withFiles(anApplication))), ItemAction::openFile);
  EXPECT_EQ(actionForItem(withCommand(withFiles(anApplication))), ItemAction::showInFinder);
}

TEST(ActionForItem, AHotKeyTakesThePlainActionWhateverIsHeld) {
  EXPECT_EQ(actionForItem(fromHotKey(withCommand(aFolder))), ItemAction::openFolder);
  EXPECT_EQ(actionForItem(fromHotKey(asAlternate(aFolder))), ItemAction::openFolder);
  EXPECT_EQ(actionForItem(fromHotKey(withCommand(documentFile))), ItemAction::openFile);
  EXPECT_EQ(actionForItem(fromHotKey(withCommand(withOption(script)))), ItemAction::execScript);
  EXPECT_EQ(actionForItem(fromHotKey(withCommand(withFiles(anApplication)))),
            ItemAction::openSelectedFiles);
}

TEST(ActionForItem, AnApplicationMindsOptionEvenFromAHotKey) {
  EXPECT_EQ(actionForItem(fromHotKey(withOption(withFiles(anApplication)))), ItemAction::openFile);
}

TEST(ActionForItem, AGroupASeparatorAndAnUnknownTypeDoNothing) {
  for (ItemType type : {ItemType::group, ItemType::spacer, ItemType::unknown}) {
    EXPECT_EQ(actionForItem(fromHotKey(choiceOf(type))), ItemAction::nothing);
    EXPECT_EQ(actionForItem(withCommand(choiceOf(type))), ItemAction::nothing);
  }
}

TEST(ActionForBrowsedFile, ADocumentThatIsAFolderIsNotRedirected) {
  EXPECT_EQ(actionForBrowsedFile(asPlainFolder(package)), ItemAction::openFile);
  EXPECT_EQ(actionForBrowsedFile(withCommand(documentFile)), ItemAction::showInFinder);
}

TEST(ActionForBrowsedFile, TheAlternateOfAFolderOpensItWithoutCapturedFiles) {
  EXPECT_EQ(actionForBrowsedFile(asAlternate(aFolder)), ItemAction::openFolder);
  EXPECT_EQ(actionForBrowsedFile(withFiles(asAlternate(aFolder))), ItemAction::moveSelectedFiles);
}

TEST(ActionForBrowsedFile, TheAlternateOfAFolderIsOneEvenWithCommand) {
  const ItemChoice choice = withTerminalSetting(withCommand(asAlternate(aFolder)));
  EXPECT_EQ(actionForBrowsedFile(choice), ItemAction::openFolder);
  EXPECT_EQ(actionForBrowsedFile(withFiles(choice)), ItemAction::moveSelectedFiles);
}

TEST(ActionForBrowsedFile, CommandRevealsEveryOtherKind) {
  for (const ItemChoice& choice : {documentFile, package, script, anApplication})
    EXPECT_EQ(actionForBrowsedFile(withFiles(withCommand(choice))), ItemAction::showInFinder);
  EXPECT_EQ(actionForBrowsedFile(withCommand(withOption(script))), ItemAction::openFile);
}

TEST(ActionForBrowsedFile, CommandOnAFolderRevealsItOrOpensATerminal) {
  EXPECT_EQ(actionForBrowsedFile(aFolder), ItemAction::openFolder);
  EXPECT_EQ(actionForBrowsedFile(withCommand(aFolder)), ItemAction::showInFinder);
  EXPECT_EQ(actionForBrowsedFile(withTerminalSetting(withCommand(aFolder))),
            ItemAction::openFolderWithTerminal);
}

TEST(ActionForBrowsedFile, ScriptsAndApplicationsActAsInTheTree) {
  EXPECT_EQ(actionForBrowsedFile(script), ItemAction::execScript);
  EXPECT_EQ(actionForBrowsedFile(withOption(script)), ItemAction::openFile);
  EXPECT_EQ(actionForBrowsedFile(withFiles(anApplication)), ItemAction::openSelectedFiles);
  EXPECT_EQ(actionForBrowsedFile(withOption(withFiles(anApplication))), ItemAction::openFile);
}

TEST(ActionForBrowsedFile, KindsThatNoFileHasDoNothing) {
  for (ItemType type : {ItemType::unknown, ItemType::url, ItemType::services, ItemType::group})
    EXPECT_EQ(actionForBrowsedFile(choiceOf(type)), ItemAction::nothing);
}

} // namespace
} // namespace tavrel
