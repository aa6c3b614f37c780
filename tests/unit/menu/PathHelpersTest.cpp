#include "support/CoreTest.h"

#include "menu/FileVisibility.h"
#include "menu/PathHelpers.h"

namespace tavrel {
namespace {

class PathHelpers : public CoreTest {
protected:
  MemoryFiles::Control& files = desktop.files.control;
};

TEST_F(PathHelpers, IsDirectoryTellsFoldersFromPackagesAndFiles) {
  files.addApplication("/a/App.app");
  files.addFolder("/a/folder");
  files.addFile("/a/file");
  EXPECT_EQ(isDirectory("/a/App.app", CleanPath::no), DirectoryKind::package);
  EXPECT_EQ(isDirectory("/a/folder", CleanPath::no), DirectoryKind::folder);
  EXPECT_EQ(isDirectory("/a/file", CleanPath::no), DirectoryKind::none);
  EXPECT_EQ(isDirectory("/a/missing", CleanPath::yes), DirectoryKind::none);
  EXPECT_EQ(static_cast<int>(DirectoryKind::package), 2);
}

TEST_F(PathHelpers, AnAliasToAFolderIsAFolderOnlyWhenCleanedUp) {
  files.addFolder("/a/folder");
  files.addAlias("/a/alias", "/a/folder");
  EXPECT_EQ(isDirectory("/a/alias", CleanPath::no), DirectoryKind::none);
  EXPECT_EQ(isDirectory("/a/alias", CleanPath::yes), DirectoryKind::folder);
}

TEST_F(PathHelpers, CleaningUpResolvesLinksThenAliases) {
  files.addFolder("/a/folder");
  files.addAlias("/a/alias", "/a/folder");
  files.addSymlink("/a/link", "/a/alias");
  EXPECT_EQ(cleanedUpPath("/a/alias"), "/a/folder");
  EXPECT_EQ(cleanedUpPath("/a/link"), "/a/folder");
}

TEST_F(PathHelpers, ALinkInsideAnAliassTargetStays) {
  files.addFolder("/a/folder");
  files.addSymlink("/a/link", "/a/folder");
  files.addAlias("/a/alias", "/a/link");
  EXPECT_EQ(resolveAliasFile("/a/alias"), "/a/link");
  EXPECT_EQ(cleanedUpPath("/a/alias"), "/a/link");
}

TEST_F(PathHelpers, AParentSegmentIsStandardised) {
  files.addFolder("/a/b");
  EXPECT_EQ(cleanedUpPath("/a/b/../b"), "/a/b");
  EXPECT_EQ(cleanedUpPath("/no/such/../thing/"), "/no/thing");
}

TEST_F(PathHelpers, ATildeIsExpanded) {
  EXPECT_EQ(resolvedSymlinks("~/x"), files.home + "/x");
}

TEST_F(PathHelpers, WhatIsNoAliasStaysItself) {
  files.addFile("/a/file");
  EXPECT_EQ(resolveAliasFile("/a/file"), "/a/file");
  EXPECT_EQ(resolveAliasFile("/a/missing"), "/a/missing");
}

TEST_F(PathHelpers, AnAliasLoopStaysItself) {
  files.addAlias("/a/one", "/a/two");
  files.addAlias("/a/two", "/a/one");
  EXPECT_EQ(resolveAliasFile("/a/one"), "/a/one");
}

class TypeFromPath : public PathHelpers {
protected:
  std::string typeWithFlags(std::uint32_t flags) {
    files.addFile("/f");
    files.at("/f").flags = flags;
    return itemTypeFromPath("/f");
  }
};

TEST_F(TypeFromPath, ACompiledScriptIsKnownByTypeCodeOrEnding) {
  files.addFile("/a/x.scpt");
  files.addScript("/a/typed");
  files.addFile("/a/x.SCPT");
  EXPECT_EQ(itemTypeFromPath("/a/x.scpt"), "applescript");
  EXPECT_EQ(itemTypeFromPath("/a/typed"), "applescript");
  EXPECT_EQ(itemTypeFromPath("/a/x.SCPT"), "document file");
}

TEST_F(TypeFromPath, AScriptBundleIsAScriptBeforeItIsAPackage) {
  files.addPackage("/a/bundle");
  files.at("/a/bundle").typeCode = scriptTypeCode;
  EXPECT_EQ(itemTypeFromPath("/a/bundle"), "applescript");
}

TEST_F(TypeFromPath, AnyApplicationFlagMakesAnApplication) {
  for (std::uint32_t flag : {0x80U, 0x100U, 0x200U, 0x400U, 0x800U})
    EXPECT_EQ(typeWithFlags(flag | itemFlag::plainFile | itemFlag::package), "application");
}

TEST_F(TypeFromPath, TheOtherFlagsCountInOrder) {
  EXPECT_EQ(typeWithFlags(itemFlag::plainFile | itemFlag::package), "document file");
  EXPECT_EQ(typeWithFlags(itemFlag::package | itemFlag::container), "package");
  EXPECT_EQ(typeWithFlags(itemFlag::container), "folder");
  EXPECT_EQ(typeWithFlags(itemFlag::symlink), "");
  EXPECT_EQ(typeWithFlags(0), "");
}

TEST_F(TypeFromPath, AFolderNamedLikeAnApplicationFollowsItsFlags) {
  files.addFolder("/a/Fake.app");
  EXPECT_EQ(itemTypeFromPath("/a/Fake.app"), "folder");
}

TEST_F(TypeFromPath, AFailedQueryHasNoType) {
  EXPECT_EQ(itemTypeFromPath("/missing"), "");
  files.addFile("/a/x");
  files.at("/a/x").informationFails = true;
  EXPECT_EQ(itemTypeFromPath("/a/x"), "");
}

class PathForItem : public PathHelpers {
protected:
  PropertyList withUrl(const std::string& url) { return fileRecord("document file", "A", url); }
  PropertyList withBookmark(const std::string& url, const Bytes& bookmark) {
    return record("document file", "A", {{TVR_MenuItemURL, url}, {TVR_MenuItemBookmark, bookmark}});
  }
};

TEST_F(PathForItem, AHomeRelativeUrlLeadsIntoTheHomeFolder) {
  EXPECT_EQ(fullPathForItem(withUrl("file:///~/x")), files.home + "/x");
}

TEST_F(PathForItem, TheHomeOfSomebodyElseIsNotLookedUpAndThePathStaysAbsolute) {
  EXPECT_EQ(fullPathForItem(withUrl("file:///~bob/x")), "/~bob/x");
}

TEST_F(PathForItem, TheHomeFolderItselfCanBeMeant) {
  EXPECT_EQ(fullPathForItem(withUrl("file:///~")), files.home);
}

TEST_F(PathForItem, ATildeLaterInThePathIsLeftAlone) {
  EXPECT_EQ(fullPathForItem(withUrl("file:///a/~b")), "/a/~b");
}

TEST_F(PathForItem, AMovedFileIsFoundThroughItsBookmark) {
  files.addFile("/a/old");
  const Bytes bookmark = desktop.files.bookmark("/a/old").value();
  files.move("/a/old", "/a/new");
  EXPECT_EQ(fullPathForItem(withBookmark("file:///a/old", bookmark)), "/a/new");
  EXPECT_THAT(files.bookmarksResolved,
              ::testing::ElementsAre(BookmarkResolution::withoutInterface));
}

TEST_F(PathForItem, ABookmarkAloneIsEnough) {
  files.addFile("/a/file");
  EXPECT_EQ(
      fullPathForItem(record("document file", "A",
                             {{TVR_MenuItemBookmark, desktop.files.bookmark("/a/file").value()}})),
      "/a/file");
}

TEST_F(PathForItem, FromTenSixOnAMovedFileIsFound) {
  gOsVersion = 0x1060;
  files.addFile("/a/old");
  const Bytes bookmark = desktop.files.bookmark("/a/old").value();
  files.move("/a/old", "/a/new");
  EXPECT_EQ(fullPathForItem(withBookmark("file:///a/old", bookmark)), "/a/new");
}

TEST_F(PathForItem, BeforeTenSixAMovedFileIsNeverFound) {
  gOsVersion = 0x105F;
  files.addFile("/a/old");
  const Bytes bookmark = desktop.files.bookmark("/a/old").value();
  files.move("/a/old", "/a/new");
  EXPECT_EQ(fullPathForItem(withBookmark("file:///a/old", bookmark)), "/a/old");
}

TEST_F(PathForItem, AFileThatIsThereNeedsNoBookmark) {
  files.addFile("/a/old");
  files.addFile("/a/other");
  EXPECT_EQ(
      fullPathForItem(withBookmark("file:///a/old", desktop.files.bookmark("/a/other").value())),
      "/a/old");
  EXPECT_TRUE(files.bookmarksResolved.empty());
}

TEST_F(PathForItem, AJunkBookmarkLeavesTheStoredPath) {
  EXPECT_EQ(fullPathForItem(withBookmark("file:///gone", {1, 2, 3})), "/gone");
}

TEST_F(PathForItem, ARecordWithoutAUrlHasNoPath) {
  EXPECT_EQ(fullPathForItem(record("folder", "A")), std::nullopt);
  EXPECT_EQ(fullPathForItem(withUrl("Look Up in Dictionary")), std::nullopt);
  EXPECT_EQ(fullPathForItem(record("folder", "A", {{TVR_MenuItemURL, 7}})), std::nullopt);
}

class Visibility : public PathHelpers {};

TEST_F(Visibility, TheSystemsOwnFoldersAreHiddenAndTheirContentsAreNot) {
  for (const char* path : {"/var", "/tmp", "/dev", "/etc", "/mach", "/automount", "/mach.sym",
                           "/mach_kernel", "/Desktop Folder", "/Network"})
    EXPECT_TRUE(isHiddenSystemFile(path)) << path;
  EXPECT_FALSE(isHiddenSystemFile("/var/log"));
  EXPECT_FALSE(isHiddenSystemFile("/home/tmp"));
}

TEST_F(Visibility, ANameThatBeginsWithAFullStopIsHidden) {
  EXPECT_TRUE(isHiddenSystemFile("/a/.hidden"));
  EXPECT_FALSE(isHiddenSystemFile("/.a/shown"));
}

TEST_F(Visibility, ThePrintCenterIsHiddenOnlyBeforeTenFour) {
  EXPECT_FALSE(isHiddenSystemFile("/a/Print Center.app"));
  gOsVersion = 0x1039;
  EXPECT_TRUE(isHiddenSystemFile("/a/Print Center.app"));
}

TEST_F(Visibility, AnEmptyNameIsACallersError) {
  EXPECT_DEBUG_DEATH((void)isHiddenSystemFile(""), "");
}

TEST_F(Visibility, TheInvisibleFlagCounts) {
  files.addFile("/a/x");
  EXPECT_FALSE(isInvisibleFile("/a/x"));
  files.at("/a/x").invisible = true;
  EXPECT_TRUE(isInvisibleFile("/a/x"));
}

TEST_F(Visibility, AFailedQueryMeansVisible) {
  EXPECT_FALSE(isInvisibleFile("/missing"));
}

TEST_F(Visibility, AFinalLinkIsFollowedOnlyBeforeTenFour) {
  files.addFile("/a/x");
  (void)isInvisibleFile("/a/x");
  gOsVersion = 0x1039;
  (void)isInvisibleFile("/a/x");
  using Asked = std::pair<std::string, FinalLink>;
  EXPECT_THAT(files.informationAsked, ::testing::ElementsAre(Asked{"/a/x", FinalLink::keep},
                                                             Asked{"/a/x", FinalLink::follow}));
}

} // namespace
} // namespace tavrel
