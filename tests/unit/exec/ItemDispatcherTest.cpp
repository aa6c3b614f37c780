#include "support/CoreTest.h"

namespace tavrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ItemDispatcher : public ControllerTest {
protected:
  ItemDispatcher() {
    desktop.files.control.addApplication("/apps/Edit.app");
    desktop.files.control.addFile("/docs/a.txt");
    desktop.files.control.addFile("/docs/b.txt");
    desktop.files.control.addFolder("/target");
    desktop.files.control.addScript("/run.scpt");
    desktop.scripts.control.files["/run.scpt"] = {};
  }

  void choose(const PropertyList& item, bool alternate = false) {
    MenuItem entry;
    entry.isAlternate = alternate;
    controller.executeItem(item, false, &entry);
  }

  void chooseBrowsed(const std::string& path, bool alternate = false) {
    MenuItem entry;
    entry.representedObject = path;
    entry.isAlternate = alternate;
    controller.fileItemDidSelected(entry);
  }

  std::vector<std::string> said() {
    std::vector<std::string> texts;
    for (const MemoryScripts::Source& source : desktop.scripts.control.sources)
      texts.push_back(source.text);
    return texts;
  }

  static std::string revealing(const std::string& path) {
    return "tell application \"Finder\" to reveal \"" + path + "\" as POSIX file";
  }

  MemoryWorkspace::Control& workspace = desktop.workspace.control;
  const PropertyList edit = fileRecord("application", "Edit", "file:///apps/Edit.app");
  const PropertyList letter = fileRecord("document file", "Letter", "file:///docs/a.txt");
  const PropertyList folder = fileRecord("folder", "Target", "file:///target");
  const PropertyList script = fileRecord("applescript", "Run", "file:///run.scpt");
};

TEST_F(ItemDispatcher, ADocumentOpensWithItsDefaultApplication) {
  choose(letter);
  EXPECT_THAT(workspace.openedFiles, ElementsAre("/docs/a.txt"));
}

TEST_F(ItemDispatcher, ADocumentBehindALinkAndAnAliasIsOpenedItself) {
  desktop.files.control.addAlias("/alias", "/docs/a.txt");
  desktop.files.control.addSymlink("/link", "/alias");
  choose(fileRecord("document file", "Letter", "file:///link"));
  EXPECT_THAT(workspace.openedFiles, ElementsAre("/docs/a.txt"));
}

TEST_F(ItemDispatcher, AMissingFileIsHandedToTheWorkspaceAsItIs) {
  choose(fileRecord("document file", "Gone", "file:///gone"));
  EXPECT_THAT(workspace.openedFiles, ElementsAre("/gone"));
}

TEST_F(ItemDispatcher, APackageThatBecameAFolderIsOpenedAsOneEvenWithCommand) {
  hold(keyCode::command);
  choose(fileRecord("package", "Bundle", "file:///target"));
  EXPECT_THAT(workspace.openedFiles, ElementsAre("/target"));
}

TEST_F(ItemDispatcher, AHotKeyOpensAFolderEvenWhileCommandIsHeld) {
  hold(keyCode::command);
  controller.executeItem(folder, true, nullptr);
  EXPECT_THAT(workspace.openedFiles, ElementsAre("/target"));
}

TEST_F(ItemDispatcher, AnApplicationIsLaunchedAloneWithoutCapturedFiles) {
  choose(edit);
  EXPECT_THAT(workspace.openedFiles, ElementsAre("/apps/Edit.app"));
  EXPECT_THAT(workspace.launches, IsEmpty());
}

TEST_F(ItemDispatcher, AnApplicationOpensTheCapturedFiles) {
  capture({"/docs/a.txt", "/docs/b.txt"});
  choose(edit);
  ASSERT_EQ(workspace.launches.size(), 1U);
  EXPECT_EQ(workspace.launches[0].applicationUrl, "file:///apps/Edit.app/");
  EXPECT_THAT(workspace.launches[0].itemUrls,
              ElementsAre("file:///docs/a.txt", "file:///docs/b.txt"));
  EXPECT_THAT(workspace.openedFiles, IsEmpty());
}

TEST_F(ItemDispatcher, WithOptionAnApplicationIsLaunchedWithoutTheCapturedFiles) {
  capture({"/docs/a.txt"});
  sOptionKeyPressed = true;
  choose(edit);
  EXPECT_THAT(workspace.openedFiles, ElementsAre("/apps/Edit.app"));
  EXPECT_THAT(workspace.launches, IsEmpty());
}

TEST_F(ItemDispatcher, AnEmptyFileListCountsAsNoFiles) {
  capture({});
  choose(edit);
  EXPECT_THAT(workspace.openedFiles, ElementsAre("/apps/Edit.app"));
}

TEST_F(ItemDispatcher, AnOpenTypeOfThreeJustLaunchesTheApplication) {
  capture({"/docs/a.txt", "/target"});
  choose(record("application", "Edit",
                {{TVR_MenuItemURL, "file:///apps/Edit.app"}, {TVR_MenuItemOpenType, 3}}));
  EXPECT_THAT(workspace.launches, IsEmpty());
  EXPECT_THAT(workspace.openedFiles, ElementsAre("/apps/Edit.app"));
}

TEST_F(ItemDispatcher, AFolderOpens) {
  choose(folder);
  EXPECT_THAT(workspace.openedFiles, ElementsAre("/target"));
}

TEST_F(ItemDispatcher, TheAlternateOfAFolderMovesTheCapturedFilesIntoIt) {
  capture({"/docs/a.txt"});
  choose(folder, true);
  EXPECT_THAT(workspace.fileRequests, ElementsAre(MemoryWorkspace::FileRequest{
                                          FileOperation::move, "/docs", "/target", {"a.txt"}}));
}

TEST_F(ItemDispatcher, TheAlternateWithoutCapturedFilesIsSilent) {
  choose(folder, true);
  EXPECT_THAT(workspace.fileRequests, IsEmpty());
  EXPECT_THAT(desktop.sounds.control.played, IsEmpty());
  EXPECT_EQ(desktop.sounds.control.beeps, 0);
}

TEST_F(ItemDispatcher, AUrlOpensAsItIsWritten) {
  choose(record("url", "Site", {{TVR_MenuItemURL, "http://x.com/%20"}}));
  EXPECT_THAT(workspace.openedUrls, ElementsAre("http://x.com/%20"));
}

TEST_F(ItemDispatcher, AUrlThatIsNoneOpensNothingAndSaysNothing) {
  choose(record("url", "Site", {{TVR_MenuItemURL, "not a url"}}));
  choose(record("url", "Nowhere"));
  EXPECT_THAT(workspace.openedFiles, IsEmpty());
  EXPECT_THAT(workspace.launches, IsEmpty());
  EXPECT_THAT(desktop.log.control.lines, IsEmpty());
  EXPECT_EQ(desktop.sounds.control.beeps, 0);
}

TEST_F(ItemDispatcher, AScriptChosenWithOptionOpensInItsEditor) {
  sOptionKeyPressed = true;
  choose(script);
  EXPECT_THAT(workspace.openedFiles, ElementsAre("/run.scpt"));
  EXPECT_THAT(desktop.scripts.control.ran, IsEmpty());
}

TEST_F(ItemDispatcher, AScriptRuns) {
  choose(script);
  EXPECT_THAT(desktop.scripts.control.ran, ElementsAre("/run.scpt"));
}

TEST_F(ItemDispatcher, AHotKeyRunsAScriptWhateverIsHeld) {
  hold(keyCode::command);
  sOptionKeyPressed = true;
  controller.executeItem(script, true, nullptr);
  EXPECT_THAT(desktop.scripts.control.ran, ElementsAre("/run.scpt"));
}

TEST_F(ItemDispatcher, AScriptBehindAnAliasRunsItself) {
  desktop.files.control.addAlias("/alias", "/run.scpt");
  choose(fileRecord("applescript", "Run", "file:///alias"));
  EXPECT_THAT(desktop.scripts.control.ran, ElementsAre("/run.scpt"));
}

TEST_F(ItemDispatcher, CommandRevealsWhatWouldOpenOrRun) {
  hold(keyCode::command);
  for (const PropertyList& item : {letter, edit, script, folder})
    choose(item);
  EXPECT_THAT(said(), ElementsAre(revealing("/docs/a.txt"), revealing("/apps/Edit.app"),
                                  revealing("/run.scpt"), revealing("/target")));
  EXPECT_THAT(workspace.openedFiles, IsEmpty());
  EXPECT_THAT(desktop.scripts.control.ran, IsEmpty());
}

TEST_F(ItemDispatcher, CommandOpensATerminalInAFolderWhenTheSettingsSaySo) {
  set(TVR2_OpenTerminalWithCmdKey, true);
  hold(keyCode::command);
  choose(folder);
  chooseBrowsed("/target");
  EXPECT_THAT(said(), ::testing::Each(::testing::HasSubstr("cd '/target'")));
  EXPECT_EQ(said().size(), 2U);
}

TEST_F(ItemDispatcher, GroupsSeparatorsAndUnknownTypesDoNothing) {
  for (const char* type : {"group", "spacer", "separator", "unheard of"})
    controller.executeItem(fileRecord(type, "A", "file:///docs/a.txt"), true, nullptr);
  EXPECT_THAT(workspace.openedFiles, IsEmpty());
  EXPECT_THAT(workspace.openedUrls, IsEmpty());
}

TEST_F(ItemDispatcher, ABrowsedFileOpensAndItsAliasIsResolved) {
  desktop.files.control.addAlias("/docs/alias", "/docs/a.txt");
  chooseBrowsed("/docs/alias");
  EXPECT_THAT(workspace.openedFiles, ElementsAre("/docs/a.txt"));
}

TEST_F(ItemDispatcher, ABrowsedAliasIsOfTheKindItHasInTheMenu) {
  desktop.files.control.addAlias("/docs/alias", "/apps/Edit.app");
  capture({"/docs/a.txt"});
  chooseBrowsed("/docs/alias");
  EXPECT_THAT(workspace.openedFiles, ElementsAre("/apps/Edit.app"));
  EXPECT_THAT(workspace.launches, IsEmpty());
}

TEST_F(ItemDispatcher, ABrowsedApplicationGetsEveryCapturedFile) {
  capture({"/docs/a.txt", "/target"});
  chooseBrowsed("/apps/Edit.app");
  ASSERT_EQ(workspace.launches.size(), 1U);
  EXPECT_THAT(workspace.launches[0].itemUrls, ElementsAre("file:///docs/a.txt", "file:///target/"));
}

TEST_F(ItemDispatcher, TheAlternateOfABrowsedFolderOpensItWithoutCapturedFiles) {
  chooseBrowsed("/target", true);
  EXPECT_THAT(workspace.openedFiles, ElementsAre("/target"));
}

TEST_F(ItemDispatcher, TheAlternateOfABrowsedFolderMovesCapturedFiles) {
  capture({"/docs/a.txt"});
  chooseBrowsed("/target", true);
  EXPECT_EQ(workspace.fileRequests.size(), 1U);
}

TEST_F(ItemDispatcher, AnEmptyFileListCountsForABrowsedFolderAlone) {
  capture({});
  chooseBrowsed("/target", true);
  EXPECT_THAT(workspace.openedFiles, IsEmpty()) << "the list is moved, not the folder opened";
  chooseBrowsed("/apps/Edit.app");
  EXPECT_THAT(workspace.openedFiles, ElementsAre("/apps/Edit.app"));
}

TEST_F(ItemDispatcher, ABrowsedChoiceForgetsAnEarlierOption) {
  sOptionKeyPressed = true;
  capture({"/docs/a.txt"});
  chooseBrowsed("/apps/Edit.app");
  EXPECT_FALSE(sOptionKeyPressed);
  EXPECT_EQ(workspace.launches.size(), 1U);
}

TEST_F(ItemDispatcher, ABrowsedChoiceStoresWhetherOptionIsHeld) {
  hold(keyCode::option);
  chooseBrowsed("/run.scpt");
  EXPECT_TRUE(sOptionKeyPressed);
  EXPECT_THAT(workspace.openedFiles, ElementsAre("/run.scpt"));
}

TEST_F(ItemDispatcher, ABrowsedScriptRuns) {
  chooseBrowsed("/run.scpt");
  EXPECT_THAT(desktop.scripts.control.ran, ElementsAre("/run.scpt"));
}

TEST_F(ItemDispatcher, CommandRevealsABrowsedFile) {
  hold(keyCode::command);
  for (const char* path : {"/docs/a.txt", "/apps/Edit.app", "/run.scpt", "/target"})
    chooseBrowsed(path);
  EXPECT_THAT(said(), ElementsAre(revealing("/docs/a.txt"), revealing("/apps/Edit.app"),
                                  revealing("/run.scpt"), revealing("/target")));
}

TEST_F(ItemDispatcher, ABrowsedThingOfUnknownKindDoesNothing) {
  chooseBrowsed("/gone");
  EXPECT_THAT(workspace.openedFiles, IsEmpty());
}

} // namespace
} // namespace tavrel
