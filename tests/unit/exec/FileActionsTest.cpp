#include "support/CoreTest.h"

#include "exec/FileActions.h"

namespace tavrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class FileActions : public ControllerTest {
protected:
  FileActions() {
    desktop.files.control.addApplication("/apps/Edit.app");
    desktop.files.control.addApplication("/apps/Tool.app");
    desktop.files.control.addFile("/docs/a.txt");
    desktop.files.control.addFile("/other/b.txt");
    desktop.files.control.addFolder("/folder");
  }

  std::vector<std::string> handedOver(std::int32_t mask) {
    openFiles({"/docs/a.txt", "/folder", "/apps/Tool.app", "/gone"}, "/apps/Edit.app", mask);
    return workspace.launches.empty() ? std::vector<std::string>{} : workspace.launches[0].itemUrls;
  }

  MemoryWorkspace::Control& workspace = desktop.workspace.control;
};

TEST_F(FileActions, WithoutAMaskEverythingIsHandedOver) {
  EXPECT_THAT(handedOver(0), ElementsAre("file:///docs/a.txt", "file:///folder/",
                                         "file:///apps/Tool.app/", "file:///gone"));
}

TEST_F(FileActions, MaskOneSkipsFilesPackagesAndWhatIsMissing) {
  EXPECT_THAT(handedOver(openType::noFiles), ElementsAre("file:///folder/"));
}

TEST_F(FileActions, MaskTwoSkipsFoldersAndHandsPackagesOver) {
  EXPECT_THAT(handedOver(openType::noFolders),
              ElementsAre("file:///docs/a.txt", "file:///apps/Tool.app/", "file:///gone"));
}

TEST_F(FileActions, MaskThreeJustLaunchesTheApplication) {
  EXPECT_THAT(handedOver(3), IsEmpty());
  EXPECT_THAT(workspace.openedFiles, ElementsAre("/apps/Edit.app"));
}

TEST_F(FileActions, AliasesAreHandedOverAsTheirTargets) {
  desktop.files.control.addAlias("/alias", "/docs/a.txt");
  openFiles({"/alias"}, "/apps/Edit.app", 0);
  EXPECT_THAT(workspace.launches.at(0).itemUrls, ElementsAre("file:///docs/a.txt"));
}

TEST_F(FileActions, TheLaunchStatusIsAnswered) {
  workspace.launchStatus = -10827;
  EXPECT_EQ(OpenDocuments({"file:///docs/a.txt"}, "/apps/Edit.app"), -10827);
  EXPECT_EQ(openFiles({"/docs/a.txt"}, "/apps/Edit.app", 0), -10827);
}

TEST_F(FileActions, MovingWithoutCapturedFilesIsSilent) {
  EXPECT_FALSE(moveSelectedFiles("/folder"));
  EXPECT_THAT(workspace.fileRequests, IsEmpty());
  EXPECT_EQ(desktop.sounds.control.beeps, 0);
}

TEST_F(FileActions, MovingAnEmptyListIsSilentToo) {
  capture({});
  EXPECT_FALSE(moveSelectedFiles("/folder"));
  EXPECT_THAT(workspace.fileRequests, IsEmpty());
  EXPECT_EQ(desktop.sounds.control.beeps, 0);
  EXPECT_THAT(desktop.sounds.control.played, IsEmpty());
}

TEST_F(FileActions, MovingTellsSuccessByItsSound) {
  capture({"/docs/a.txt"});
  EXPECT_TRUE(moveSelectedFiles("/folder"));
  EXPECT_THAT(desktop.sounds.control.played, ElementsAre("didMoved"));
}

TEST_F(FileActions, AFailedMoveBeeps) {
  capture({"/docs/a.txt"});
  workspace.fileOperationsSucceed = false;
  EXPECT_FALSE(moveSelectedFiles("/folder"));
  EXPECT_EQ(desktop.sounds.control.beeps, 1);
  EXPECT_THAT(desktop.sounds.control.played, IsEmpty());
}

TEST_F(FileActions, ShiftCopiesWithTheSameSound) {
  capture({"/docs/a.txt"});
  hold(keyCode::shift);
  EXPECT_TRUE(moveSelectedFiles("/folder"));
  EXPECT_EQ(workspace.fileRequests.at(0).operation, FileOperation::copy);
  EXPECT_THAT(desktop.sounds.control.played, ElementsAre("didMoved"));
}

TEST_F(FileActions, TheFolderOfTheLastFileServesAsTheSourceOfAll) {
  capture({"/docs/a.txt", "/other/b.txt"});
  EXPECT_TRUE(moveSelectedFiles("/folder"));
  EXPECT_THAT(workspace.fileRequests,
              ElementsAre(MemoryWorkspace::FileRequest{
                  FileOperation::move, "/other", "/folder", {"a.txt", "b.txt"}}));
}

TEST_F(FileActions, FilesOfDifferentFoldersCannotBeMovedTogether) {
  capture({"/docs/a.txt", "/other/b.txt"});
  workspace.fileOperationsSucceed = false; // as a workspace answers that misses /other/a.txt
  EXPECT_FALSE(moveSelectedFiles("/folder"));
  EXPECT_EQ(workspace.fileRequests.at(0).source, "/other");
  EXPECT_EQ(desktop.sounds.control.beeps, 1);
  EXPECT_THAT(desktop.sounds.control.played, IsEmpty());
}

TEST_F(FileActions, AMovedAliasIsMovedItselfToTheFolderAsNamed) {
  desktop.files.control.addAlias("/links/alias", "/docs/a.txt");
  desktop.files.control.addSymlink("/to folder", "/folder");
  capture({"/links/alias"});
  EXPECT_TRUE(moveSelectedFiles("/to folder"));
  EXPECT_THAT(workspace.fileRequests, ElementsAre(MemoryWorkspace::FileRequest{
                                          FileOperation::move, "/links", "/to folder", {"alias"}}));
}

TEST_F(FileActions, OfTwoFileListsTheFileNamesCount) {
  const char* other = pasteboardType::pathFinderFilenames;
  privatePasteboard().declareTypes({other, pasteboardType::filenames});
  privatePasteboard().setPropertyList(PropertyList::Array{"/other/b.txt"}, other);
  privatePasteboard().setPropertyList(PropertyList::Array{"/docs/a.txt"},
                                      pasteboardType::filenames);
  EXPECT_EQ(capturedFiles(), std::vector<std::string>{"/docs/a.txt"});
}

TEST_F(FileActions, TheOtherFileListCountsWhenTheFirstIsMissing) {
  capture({"/docs/a.txt"}, pasteboardType::pathFinderFilenames);
  EXPECT_TRUE(moveSelectedFiles("/folder"));
}

TEST_F(FileActions, FlavorIsZeroWhenUnknown) {
  const auto running = desktop.applications.control.start("A", "/apps/Edit.app");
  EXPECT_EQ(GetApplicationFlavor(running.serialNumber), 2);
  desktop.applications.control.information.insert_or_assign(running.processIdentifier,
                                                            PropertyList::Dictionary{});
  EXPECT_EQ(GetApplicationFlavor(running.serialNumber), 0);
  EXPECT_EQ(GetApplicationFlavor({9, 9}), 0);
}

class TreeInsertion : public FileActions {
protected:
  PropertyList::Array storedTree() {
    return *desktop.preferences.control.store[preferenceDomain].at(TVR_MenuTree).array();
  }
};

TEST_F(TreeInsertion, AFileBecomesARecordAtTheEndOfTheTree) {
  const PropertyList first = record("url", "First");
  setTree({first});
  controller.applicationWillFinishLaunching();
  desktop.files.control.at("/docs/a.txt").displayName = "A letter";
  controller.insertFileItemsToPlist({"/docs/a.txt", "/folder"});
  EXPECT_THAT(
      storedTree(),
      ElementsAre(
          first,
          PropertyList(PropertyList::Dictionary{{TVR_MenuItemType, "document file"},
                                                {TVR_MenuItemTitle, "A letter"},
                                                {TVR_MenuItemURL, "file:///docs/a.txt"},
                                                {TVR_MenuItemTree, PropertyList::Array{}}}),
          PropertyList(PropertyList::Dictionary{{TVR_MenuItemType, "folder"},
                                                {TVR_MenuItemTitle, "folder"},
                                                {TVR_MenuItemURL, "file:///folder/"},
                                                {TVR_MenuItemTree, PropertyList::Array{}}})));
}

TEST_F(TreeInsertion, EveryKindOfFileIsTakenIn) {
  desktop.files.control.addPackage("/bundle");
  desktop.files.control.addScript("/run.scpt");
  controller.insertFileItemsToPlist(
      {"/apps/Edit.app", "/docs/a.txt", "/bundle", "/run.scpt", "/folder"});
  std::vector<std::string> types;
  for (const PropertyList& inserted : storedTree())
    types.push_back(inserted.find(TVR_MenuItemType) ? *inserted.stringFor(TVR_MenuItemType) : "");
  EXPECT_THAT(types,
              ElementsAre("application", "document file", "package", "applescript", "folder"));
}

TEST_F(TreeInsertion, AnAliasOrALinkIsTakenInAsItsTarget) {
  desktop.files.control.addAlias("/alias", "/apps/Edit.app");
  desktop.files.control.addSymlink("/link", "/apps/Edit.app");
  desktop.files.control.at("/apps/Edit.app").displayName = "Editor";
  controller.insertFileItemsToPlist({"/alias", "/link"});
  const PropertyList editor = PropertyList::Dictionary{{TVR_MenuItemType, "application"},
                                                       {TVR_MenuItemTitle, "Editor"},
                                                       {TVR_MenuItemURL, "file:///apps/Edit.app/"},
                                                       {TVR_MenuItemTree, PropertyList::Array{}}};
  EXPECT_THAT(storedTree(), ElementsAre(editor, editor));
}

TEST_F(TreeInsertion, AFileOfUnknownKindBecomesAnEmptyRecord) {
  controller.insertFileItemsToPlist({"/gone"});
  EXPECT_THAT(storedTree(), ElementsAre(PropertyList(PropertyList::Dictionary{})));
}

TEST_F(TreeInsertion, TheDomainIsSynchronisedAndTheMenuIsRebuiltLater) {
  controller.applicationWillFinishLaunching();
  controller.insertFileItemsToPlist({"/docs/a.txt"});
  EXPECT_THAT(desktop.preferences.control.synchronized, ElementsAre(preferenceDomain));
  EXPECT_TRUE(state.needToRecreateMenu);
  EXPECT_FALSE(state.menuRootArray) << "the tree in memory stays until it is read again";
}

} // namespace
} // namespace tavrel
