#include "support/CoreTest.h"

#include "platform/common/MenuRows.h"

namespace tavrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class FolderBrowsing : public ControllerTest {
protected:
  FolderBrowsing() {
    showIcon = false; // but where a test is about icons
    files.addFolder("/docs");
  }

  std::string opened() {
    controller.menuNeedsUpdate(menu);
    return menuText(menu, MenuTextDetail::visibleRows);
  }
  std::string openedInFull() {
    controller.menuNeedsUpdate(menu);
    return menuText(menu, MenuTextDetail::everything);
  }

  MemoryFiles::Control& files = desktop.files.control;
  Menu menu{"/docs"};
};

TEST_F(FolderBrowsing, NamesAreListedAsPeopleCountAndHiddenOnesAreLeftOut) {
  for (const char* name : {"a10", "a9", "A1", ".hidden"})
    files.addFile("/docs/" + std::string(name));
  files.addFile("/docs/b");
  files.at("/docs/b").invisible = true;
  EXPECT_EQ(opened(), "A1\na9\na10\n");
}

TEST_F(FolderBrowsing, AFolderIsBrowsedFurtherAndHasAnAlternateThatShowsWithOption) {
  state.images.move_badge_image = Image{{{nullptr, {8, 8}}}, {8, 8}};
  showIcon = true;
  files.addFolder("/docs/inner");
  EXPECT_EQ(openedInFull(), R"(inner <fileItemDidSelected> {icon of /docs/inner 16x16} (/docs/inner)
inner ⌥ [alternate] <fileItemDidSelected> {icon of /docs/inner+image 16x16}
)");
  EXPECT_EQ(menu.items[0]->submenu->delegate, &controller);
  EXPECT_EQ(menu.items[0]->representedObject, PropertyList("/docs/inner"));
  EXPECT_EQ(menu.items[1]->representedObject, PropertyList("/docs/inner"));
  EXPECT_THAT(visibleRows(menu, OptionKey::up), ElementsAre(menu.items[0].get()));
  EXPECT_THAT(visibleRows(menu, OptionKey::down), ElementsAre(menu.items[1].get()));
}

TEST_F(FolderBrowsing, SubmenusGoOnAsDeepAsThereAreFolders) {
  files.addFile("/docs/inner/leaf");
  opened();
  Menu& inner = *menu.items[0]->submenu;
  controller.menuNeedsUpdate(inner);
  EXPECT_EQ(menuText(menu, MenuTextDetail::visibleRows), "inner (/docs/inner)\n  leaf\n");
  EXPECT_EQ(inner.items[0]->representedObject, PropertyList("/docs/inner/leaf"));
}

TEST_F(FolderBrowsing, WithFolderBrowsingOffAFolderHasNoSubmenuButItsAlternate) {
  state.settings.browseFolder = false;
  files.addFolder("/docs/inner");
  files.addApplication("/docs/Edit.app");
  EXPECT_EQ(openedInFull(), "Edit.app <fileItemDidSelected>\ninner <fileItemDidSelected>\n"
                            "inner ⌥ [alternate] <fileItemDidSelected>\n");
}

TEST_F(FolderBrowsing, AnApplicationIsBrowsedOnlyWhenAskedForAndNeverHasAnAlternate) {
  files.addApplication("/docs/Edit.app");
  files.addPackage("/docs/Notes.rtfd");
  EXPECT_EQ(openedInFull(), "Edit.app <fileItemDidSelected>\nNotes.rtfd <fileItemDidSelected>\n");
  state.settings.browsePackage = true;
  EXPECT_EQ(openedInFull(), "Edit.app <fileItemDidSelected> (/docs/Edit.app)\n"
                            "Notes.rtfd <fileItemDidSelected> (/docs/Notes.rtfd)\n");
}

TEST_F(FolderBrowsing, AnAliasToAFolderIsBrowsedUnderItsOwnNameAndIcon) {
  showIcon = true;
  files.addFile("/target/inside");
  files.addAlias("/docs/alias", "/target");
  EXPECT_EQ(openedInFull(), R"(alias <fileItemDidSelected> {icon of /docs/alias 16x16} (/docs/alias)
alias ⌥ [alternate] <fileItemDidSelected> {icon of /docs/alias 16x16}
)");
  Menu& submenu = *menu.items[0]->submenu;
  controller.menuNeedsUpdate(submenu);
  EXPECT_EQ(submenu.items.at(0)->representedObject, PropertyList("/target/inside"))
      << "paths go on from what the alias leads to";
}

TEST_F(FolderBrowsing, AnAliasWhoseTargetIsGoneIsAPlainEntry) {
  files.addAlias("/docs/alias", "/gone");
  EXPECT_EQ(openedInFull(), "alias <fileItemDidSelected>\n");
}

TEST_F(FolderBrowsing, ALinkThatLeadsNowhereOrInACircleIsMarkedAndDisabled) {
  showIcon = true;
  files.addSymlink("/docs/broken", "/gone");
  files.addSymlink("/docs/circle", "/docs/circle");
  EXPECT_EQ(openedInFull(), "?? broken [disabled] <fileItemDidSelected>\n"
                            "?? circle [disabled] <fileItemDidSelected>\n");
}

TEST_F(FolderBrowsing, AFolderThatLeadsBackToItselfIsBrowsedRoundAndRound) {
  files.addSymlink("/docs/again", "/docs");
  EXPECT_EQ(opened(), "again (/docs/again)\n");
  Menu& again = *menu.items[0]->submenu;
  controller.menuNeedsUpdate(again);
  EXPECT_EQ(again.items.at(0)->representedObject, PropertyList("/docs/again"))
      << "never a longer path";
}

TEST_F(FolderBrowsing, EntriesShowDisplayNamesButSortByRawOnes) {
  files.addFile("/docs/1");
  files.addFile("/docs/2");
  files.at("/docs/1").displayName = "Zebra";
  files.at("/docs/2").displayName = "Ape";
  EXPECT_EQ(opened(), "Zebra\nApe\n");
  EXPECT_EQ(menu.items[0]->representedObject, PropertyList("/docs/1"));
}

TEST_F(FolderBrowsing, NamesOfAnyBytesKeepTheirPaths) {
  for (const char* name : {"\xFF\xFE", "line\nfeed", "\u202Edet", "a&b"})
    files.addFile("/docs/" + std::string(name));
  files.addFile("/docs/" + std::string(255, 'x'));
  opened();
  std::vector<std::string> paths;
  for (const auto& item : menu.items)
    paths.push_back(*item->representedObject->string());
  EXPECT_THAT(paths, ElementsAre("/docs/a&b", "/docs/line\nfeed", "/docs/" + std::string(255, 'x'),
                                 "/docs/\u202Edet", "/docs/\xFF\xFE"));
}

TEST_F(FolderBrowsing, AnEmptyFolderOrOneThatCannotBeReadOrIsGoneHasAnEmptySubmenu) {
  EXPECT_EQ(opened(), "");
  files.addFile("/docs/a");
  files.at("/docs").listingFails = true;
  EXPECT_EQ(opened(), "");
  files.remove("/docs");
  EXPECT_EQ(opened(), "");
  EXPECT_THAT(desktop.log.control.lines, IsEmpty());
}

TEST_F(FolderBrowsing, AFolderThatBecameAFileHasAnEmptySubmenu) {
  files.addFile("/docs/a");
  EXPECT_EQ(opened(), "a\n");
  files.remove("/docs");
  files.addFile("/docs");
  EXPECT_EQ(opened(), "");
}

TEST_F(FolderBrowsing, ASubmenuIsFilledAnewEachTimeItOpens) {
  files.addFile("/docs/a");
  opened();
  files.remove("/docs/a");
  files.addFile("/docs/b");
  EXPECT_EQ(opened(), "b\n");
}

TEST_F(FolderBrowsing, WhileAnyKeyIsDownASubmenuKeepsWhatItShowed) {
  files.addFile("/docs/a");
  opened();
  files.addFile("/docs/b");
  hold(keyCode::option);
  EXPECT_EQ(opened(), "a\n");
  desktop.keyboard.control.down = {};
  EXPECT_EQ(opened(), "a\nb\n");
}

TEST_F(FolderBrowsing, WhileAScriptRunsASubmenuKeepsWhatItShowed) {
  files.addFile("/docs/a");
  gExecutingScript = true;
  EXPECT_EQ(opened(), "");
  EXPECT_THAT(files.listed, IsEmpty());
}

TEST_F(FolderBrowsing, AGroupIsNeverFilled) {
  Menu group("group");
  group.add({.title = "mine"});
  controller.menuNeedsUpdate(group);
  EXPECT_EQ(menuText(group, MenuTextDetail::visibleRows), "mine\n");
}

TEST_F(FolderBrowsing, AMenuWithoutATitleIsLeftAlone) {
  Menu untitled;
  untitled.add({.title = "mine"});
  controller.attachFolderContentsFor(untitled);
  EXPECT_EQ(menuText(untitled, MenuTextDetail::visibleRows), "mine\n");
}

TEST_F(FolderBrowsing, TheFolderIsCleanedUpBeforeItIsListed) {
  files.addFile("/docs/a");
  files.addSymlink("/link", "/docs");
  Menu linked("/link");
  controller.menuNeedsUpdate(linked);
  EXPECT_EQ(linked.items.at(0)->representedObject, PropertyList("/docs/a"));
}

TEST_F(FolderBrowsing, OfTheRootSystemPathsAreLeftOut) {
  for (const char* path : {"/var/log", "/tmp", "/etc", "/home"})
    files.addFolder(path);
  Menu root("/");
  controller.menuNeedsUpdate(root);
  EXPECT_EQ(menuText(root, MenuTextDetail::visibleRows),
            "Users (/Users)\ndocs (/docs)\nhome (/home)\n");
}

TEST_F(FolderBrowsing, NoNumberOfEntriesIsTooLarge) {
  for (int i = 0; i < 20'000; ++i)
    files.addFile("/docs/" + std::to_string(i));
  opened();
  ASSERT_THAT(menu.items, SizeIs(20'000));
  EXPECT_EQ(menu.items[19'999]->title, "19999");
}

TEST_F(FolderBrowsing, AChosenEntryIsHandedOnWithItsPath) {
  files.addFile("/docs/a");
  opened();
  controller.menuItemChosen(*menu.items[0]);
  EXPECT_THAT(desktop.workspace.control.openedFiles, ElementsAre("/docs/a"));
}

TEST_F(FolderBrowsing, AnEntryThatIsGoneWhenItIsChosenDoesNothing) {
  files.addFile("/docs/a");
  opened();
  files.remove("/docs/a");
  controller.menuItemChosen(*menu.items[0]);
  EXPECT_THAT(desktop.workspace.control.openedFiles, IsEmpty());
}

TEST_F(FolderBrowsing, AnEntryThatWasRenamedMeanwhileDoesNothingAndIsThereByItsNewNameNextTime) {
  files.addFile("/docs/a");
  opened();
  files.move("/docs/a", "/docs/b");
  controller.menuItemChosen(*menu.items[0]);
  EXPECT_THAT(desktop.workspace.control.openedFiles, IsEmpty());
  EXPECT_EQ(opened(), "b\n");
  controller.menuItemChosen(*menu.items[0]);
  EXPECT_THAT(desktop.workspace.control.openedFiles, ElementsAre("/docs/b"));
}

TEST_F(FolderBrowsing, AFolderThatBecameAFileMeanwhileOpensAsOneAndTakesNoFiles) {
  files.addFolder("/docs/a");
  opened();
  files.remove("/docs/a");
  files.addFile("/docs/a");
  controller.menuNeedsUpdate(*menu.items[0]->submenu);
  EXPECT_THAT(menu.items[0]->submenu->items, IsEmpty());
  controller.menuItemChosen(*menu.items[1]);
  EXPECT_THAT(desktop.workspace.control.openedFiles, ElementsAre("/docs/a"));
}

TEST_F(FolderBrowsing, AnAliasWhoseTargetWentMeanwhileLeadsToItself) {
  files.addFile("/target");
  files.addAlias("/docs/alias", "/target");
  opened();
  files.remove("/target");
  controller.menuItemChosen(*menu.items[0]);
  EXPECT_THAT(desktop.workspace.control.openedFiles, ElementsAre("/docs/alias"));
}

TEST_F(FolderBrowsing, AFolderThatMayNotBeSearchedHasEntriesThatDoNothing) {
  files.addFile("/docs/a");
  files.at("/docs/a").informationFails = true;
  EXPECT_EQ(opened(), "a\n");
  controller.menuItemChosen(*menu.items[0]);
  EXPECT_THAT(desktop.workspace.control.openedFiles, IsEmpty());
}

TEST_F(FolderBrowsing, AFileThatBecameAFolderMeanwhileOpensAsOne) {
  set(TVR2_OpenTerminalWithCmdKey, true);
  files.addFile("/docs/a");
  opened();
  files.addFolder("/docs/a");
  hold(keyCode::command);
  controller.menuItemChosen(*menu.items[0]);
  ASSERT_THAT(desktop.scripts.control.sources, SizeIs(1));
  EXPECT_THAT(desktop.scripts.control.sources[0].text, ::testing::HasSubstr("cd '/docs/a'"));
}

} // namespace
} // namespace tavrel
