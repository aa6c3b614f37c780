#include "exec/ItemAction.h"
#include "support/CoreTest.h"

namespace tavrel {
namespace {

/// What an entry says of itself is what choosing it does.
class EntryEffectsTest : public ControllerTest {
protected:
  EntryEffectsTest() { showIcon = false; }

  EntryEffects effectsIn(const char* menuTitle, std::size_t row) {
    menu.title = menuTitle;
    controller.menuNeedsUpdate(menu);
    return menu.items.at(row)->effects;
  }

  MemoryFiles::Control& files = desktop.files.control;
  Menu menu;
};

TEST_F(EntryEffectsTest, AFileOfABrowsedFolderOpensOrIsShown) {
  files.addFile("/docs/letter");
  EXPECT_EQ(effectsIn("/docs", 0), (EntryEffects{.plain = ItemAction::openFile,
                                                 .withoutFiles = ItemAction::openFile,
                                                 .withCommand = ItemAction::showInFinder,
                                                 .withOption = ItemAction::openFile}));
}

TEST_F(EntryEffectsTest, AFolderIsShownWithCommand) {
  files.addFolder("/docs/inner");
  EXPECT_EQ(effectsIn("/docs", 0).withCommand, ItemAction::showInFinder);
}

TEST_F(EntryEffectsTest, AFolderSaysSoWhenCommandOpensATerminal) {
  files.addFolder("/docs/inner");
  set(TVR2_OpenTerminalWithCmdKey, true);
  EXPECT_EQ(effectsIn("/docs", 0).withCommand, ItemAction::openFolderWithTerminal);
}

TEST_F(EntryEffectsTest, TheAlternateOfABrowsedFolderMovesFilesOrOpensItWithoutAny) {
  files.addFolder("/docs/inner");
  const EntryEffects effects = effectsIn("/docs", 1);
  EXPECT_EQ(effects.plain, ItemAction::moveSelectedFiles);
  EXPECT_EQ(effects.withoutFiles, ItemAction::openFolder);
}

TEST_F(EntryEffectsTest, TheAlternateOfAFolderOfTheTreeMovesFilesAndThatOfADocumentOpensIt) {
  files.addFolder("/docs");
  const PropertyList::Array records{fileRecord("folder", "Docs", "file:///docs"),
                                    fileRecord("document file", "Docs", "file:///docs")};
  state.settings.browseFolder = false;
  controller.createContextMenu(menu, records, 1);
  ASSERT_EQ(menu.items.size(), 4U);
  EXPECT_EQ(menu.items[1]->effects.plain, ItemAction::moveSelectedFiles);
  EXPECT_EQ(menu.items[1]->effects.withoutFiles, ItemAction::moveSelectedFiles);
  EXPECT_EQ(menu.items[3]->effects.plain, ItemAction::openFolder);
  EXPECT_EQ(menu.items[0]->effects, EntryEffects{}) << "the user chose the title";
}

TEST_F(EntryEffectsTest, ARunningApplicationComesToTheFrontIsShownOrQuits) {
  desktop.applications.control.running = {{"Mail", "/apps/Mail.app", 1, {}}};
  EXPECT_EQ(effectsIn("TVRM_ProcessMenu", 0),
            (EntryEffects{.plain = ItemAction::bringToFront,
                          .withoutFiles = ItemAction::bringToFront,
                          .withCommand = ItemAction::showInFinder,
                          .withOption = ItemAction::quit}));
}

TEST(EntryEffects, AreWhatTheDecisionAnswersUnderEachCircumstance) {
  const auto decide = [](const ItemChoice& choice) {
    if (choice.commandHeld)
      return ItemAction::showInFinder;
    if (choice.optionHeld)
      return ItemAction::quit;
    return choice.filesCaptured ? ItemAction::openSelectedFiles : ItemAction::openFile;
  };
  EXPECT_EQ(effectsOf(decide, {}), (EntryEffects{.plain = ItemAction::openSelectedFiles,
                                                 .withoutFiles = ItemAction::openFile,
                                                 .withCommand = ItemAction::showInFinder,
                                                 .withOption = ItemAction::quit}));
}

TEST(ActionForRecentItem, AServerOpensWhateverKeyIsHeld) {
  for (const bool command : {false, true})
    EXPECT_EQ(actionForRecentItem({.commandHeld = command, .isServer = true}),
              ItemAction::openServer);
  EXPECT_EQ(actionForRecentItem({}), ItemAction::openFile);
  EXPECT_EQ(actionForRecentItem({.commandHeld = true}), ItemAction::showInFinder);
}

} // namespace
} // namespace tavrel
