#pragma once

#include "base/Url.h"
#include "platform/Files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavrel {

/// Every desktop's files. `World` has `files()`, `root()` (an empty folder without links on the way
/// to it), `home()`, and makes things: addFile, addFolder, addPackage (ending ".rtfd"),
/// addApplication (".app"), addScript (".applescript"), addSymlink, addAlias (".desktop"), remove
/// and move.
template <class World> class FilesContract : public ::testing::Test {
protected:
  std::string at(const std::string& name) { return world.root() + '/' + name; }
  Files& files() { return world.files(); }
  std::uint32_t flags(const std::string& name, FinalLink link = FinalLink::follow) {
    const auto information = files().information(at(name), link);
    return information ? information->flags : 0xFFFFFFFF;
  }
  std::uint32_t typeCode(const std::string& name) {
    return files().information(at(name), FinalLink::follow).value_or(ItemInformation{}).typeCode;
  }
  std::optional<std::string> bookmarked(const Bytes& bookmark) {
    const auto url = files().resolveBookmark(bookmark, BookmarkResolution::withoutInterface);
    return url ? pathOfUrl(*url) : std::nullopt;
  }
  World world;
};

TYPED_TEST_SUITE_P(FilesContract);

TYPED_TEST_P(FilesContract, AFileAFolderAndAPackageAreTold) {
  this->world.addFile(this->at("a.txt"));
  this->world.addFolder(this->at("folder"));
  this->world.addPackage(this->at("text.rtfd"));
  this->world.addApplication(this->at("Tool.app"));
  EXPECT_EQ(this->files().kind(this->at("a.txt")), FileKind::plain);
  EXPECT_EQ(this->files().kind(this->at("folder")), FileKind::directory);
  EXPECT_EQ(this->files().kind(this->at("text.rtfd")), FileKind::package);
  EXPECT_EQ(this->files().kind(this->at("Tool.app")), FileKind::package);
}

TYPED_TEST_P(FilesContract, NothingStandsAtAMissingPath) {
  EXPECT_FALSE(this->files().exists(this->at("none")));
  EXPECT_EQ(this->files().kind(this->at("none")), FileKind::none);
  EXPECT_FALSE(this->files().information(this->at("none"), FinalLink::follow));
  EXPECT_FALSE(this->files().information(this->at("none"), FinalLink::keep));
  EXPECT_FALSE(this->files().exists(""));
  EXPECT_EQ(this->files().kind(""), FileKind::none);
}

TYPED_TEST_P(FilesContract, ALinkIsSeenThrough) {
  this->world.addFolder(this->at("folder"));
  this->world.addFile(this->at("folder/inside"));
  this->world.addSymlink(this->at("link"), "folder");
  EXPECT_TRUE(this->files().exists(this->at("link/inside")));
  EXPECT_EQ(this->files().kind(this->at("link")), FileKind::directory);
  EXPECT_THAT(this->files().list(this->at("link")), ::testing::ElementsAre("inside"));
}

TYPED_TEST_P(FilesContract, NothingStandsAtTheEndOfABrokenLinkOrALoop) {
  this->world.addSymlink(this->at("broken"), "nowhere");
  this->world.addSymlink(this->at("one"), "two");
  this->world.addSymlink(this->at("two"), "one");
  EXPECT_FALSE(this->files().exists(this->at("broken")));
  EXPECT_EQ(this->files().kind(this->at("broken")), FileKind::none);
  EXPECT_FALSE(this->files().exists(this->at("one")));
  EXPECT_EQ(this->files().kind(this->at("one")), FileKind::none);
}

TYPED_TEST_P(FilesContract, AListingNamesEveryEntryOnce) {
  this->world.addFile(this->at("b"));
  this->world.addFile(this->at(".dot"));
  this->world.addFolder(this->at("folder"));
  this->world.addFile(this->at("folder/deep"));
  this->world.addSymlink(this->at("broken"), "nowhere");
  EXPECT_THAT(this->files().list(this->world.root()),
              ::testing::UnorderedElementsAre("b", ".dot", "folder", "broken"));
}

TYPED_TEST_P(FilesContract, BrowsingAnswersForEachNameWhatTheSingleQuestionsWould) {
  this->world.addFile(this->at("b"));
  this->world.addFile(this->at(".dot"));
  this->world.addFolder(this->at("folder"));
  this->world.addApplication(this->at("Edit.app"));
  this->world.addSymlink(this->at("link"), "folder");
  this->world.addSymlink(this->at("broken"), "nowhere");
  this->world.addSymlink(this->at("circle"), "circle");
  this->world.addAlias(this->at("alias.desktop"), this->at("folder"));
  this->world.addSymlink(this->at("link to alias.desktop"), "alias.desktop");
  this->world.addAlias(this->at("lost.desktop"), this->at("none"));
  std::vector<std::string> names;
  for (const ListedFile& file : this->files().browse(this->world.root(), FinalLink::keep)) {
    const std::string path = this->at(file.name);
    const auto information = this->files().information(path, FinalLink::keep);
    const std::string resolved = this->files().resolveSymlinks(path);
    names.push_back(file.name);
    EXPECT_EQ(file.displayName, this->files().displayName(path)) << file.name;
    EXPECT_EQ(file.invisible, (information->flags & itemFlag::invisible) != 0) << file.name;
    EXPECT_EQ(file.kind,
              this->files().kind(this->files().resolveAlias(resolved).value_or(resolved)))
        << file.name;
  }
  EXPECT_THAT(names, ::testing::UnorderedElementsAreArray(this->files().list(this->world.root())));
}

TYPED_TEST_P(FilesContract, WhatCannotBeListedCannotBeBrowsed) {
  this->world.addFile(this->at("file"));
  this->world.addFolder(this->at("empty"));
  for (const char* name : {"file", "empty", "none"})
    EXPECT_THAT(this->files().browse(this->at(name), FinalLink::keep), ::testing::IsEmpty());
}

TYPED_TEST_P(FilesContract, JunkIsNoAliasRecord) {
  for (const auto how : {AliasResolution::withoutInterface, AliasResolution::fileIdentifierFirst})
    for (const Bytes& junk : {Bytes{}, Bytes{1, 2, 3}})
      EXPECT_FALSE(this->files().resolveAliasRecord(junk, how));
}

TYPED_TEST_P(FilesContract, WhatCannotBeListedIsEmpty) {
  this->world.addFile(this->at("file"));
  this->world.addFolder(this->at("empty"));
  EXPECT_THAT(this->files().list(this->at("file")), ::testing::IsEmpty());
  EXPECT_THAT(this->files().list(this->at("empty")), ::testing::IsEmpty());
  EXPECT_THAT(this->files().list(this->at("none")), ::testing::IsEmpty());
}

TYPED_TEST_P(FilesContract, ADisplayNameIsTheLastComponentWhereThereIsNoBetter) {
  this->world.addFile(this->at("a b.txt"));
  EXPECT_EQ(this->files().displayName(this->at("a b.txt")), "a b.txt");
  EXPECT_EQ(this->files().displayName(this->at("none.txt")), "none.txt");
}

TYPED_TEST_P(FilesContract, LinksAreResolvedAnywhereInAPath) {
  this->world.addFolder(this->at("folder"));
  this->world.addFile(this->at("folder/file"));
  this->world.addSymlink(this->at("link"), this->at("folder"));
  this->world.addSymlink(this->at("folder/chain"), "../link/file");
  EXPECT_EQ(this->files().resolveSymlinks(this->at("link/chain")), this->at("folder/file"));
  EXPECT_EQ(this->files().resolveSymlinks(this->at("link")), this->at("folder"));
}

TYPED_TEST_P(FilesContract, TheParentOfALinkIsThatOfItsTarget) {
  this->world.addFolder(this->at("far/folder"));
  this->world.addSymlink(this->at("link"), "far/folder");
  EXPECT_EQ(this->files().resolveSymlinks(this->at("link/..")), this->at("far"));
}

TYPED_TEST_P(FilesContract, APathWithoutLinksComesBackUnchanged) {
  this->world.addFile(this->at("file"));
  EXPECT_EQ(this->files().resolveSymlinks(this->at("file")), this->at("file"));
  EXPECT_EQ(this->files().resolveSymlinks("/"), "/");
}

TYPED_TEST_P(FilesContract, APathThatDoesNotResolveComesBackUnchanged) {
  this->world.addSymlink(this->at("broken"), "nowhere");
  this->world.addSymlink(this->at("loop"), "loop");
  for (const char* name : {"none", "broken", "loop", "none/../x"})
    EXPECT_EQ(this->files().resolveSymlinks(this->at(name)), this->at(name));
}

TYPED_TEST_P(FilesContract, ALeadingTildeIsTheHomeFolder) {
  const std::string home = this->world.home();
  EXPECT_EQ(this->files().homeDirectory(), home);
  EXPECT_EQ(this->files().resolveSymlinks("~"), home);
  EXPECT_EQ(this->files().resolveSymlinks("~/none"), home + "/none");
}

TYPED_TEST_P(FilesContract, AnAliasLeadsToItsTarget) {
  this->world.addFile(this->at("target"));
  this->world.addAlias(this->at("alias.desktop"), this->at("target"));
  EXPECT_EQ(this->files().resolveAlias(this->at("alias.desktop")), this->at("target"));
}

TYPED_TEST_P(FilesContract, AChainOfAliasesIsFollowedToItsEnd) {
  this->world.addFolder(this->at("target"));
  this->world.addAlias(this->at("c.desktop"), this->at("target"));
  this->world.addAlias(this->at("b.desktop"), this->at("c.desktop"));
  this->world.addAlias(this->at("a.desktop"), this->at("b.desktop"));
  EXPECT_EQ(this->files().resolveAlias(this->at("a.desktop")), this->at("target"));
}

TYPED_TEST_P(FilesContract, AnAliasLoopHasNoTarget) {
  this->world.addAlias(this->at("a.desktop"), this->at("b.desktop"));
  this->world.addAlias(this->at("b.desktop"), this->at("a.desktop"));
  this->world.addAlias(this->at("self.desktop"), this->at("self.desktop"));
  EXPECT_FALSE(this->files().resolveAlias(this->at("a.desktop")));
  EXPECT_FALSE(this->files().resolveAlias(this->at("self.desktop")));
}

TYPED_TEST_P(FilesContract, AnAliasWhoseTargetIsGoneHasNone) {
  this->world.addAlias(this->at("a.desktop"), this->at("none"));
  EXPECT_FALSE(this->files().resolveAlias(this->at("a.desktop")));
}

TYPED_TEST_P(FilesContract, ALinkInsideTheTargetOfAnAliasStays) {
  this->world.addFile(this->at("file"));
  this->world.addSymlink(this->at("link"), "file");
  this->world.addAlias(this->at("a.desktop"), this->at("link"));
  EXPECT_EQ(this->files().resolveAlias(this->at("a.desktop")), this->at("link"));
}

TYPED_TEST_P(FilesContract, WhatIsNoAliasHasNoTarget) {
  this->world.addFile(this->at("file"));
  this->world.addFolder(this->at("folder"));
  EXPECT_FALSE(this->files().resolveAlias(this->at("file")));
  EXPECT_FALSE(this->files().resolveAlias(this->at("folder")));
  EXPECT_FALSE(this->files().resolveAlias(this->at("none")));
}

TYPED_TEST_P(FilesContract, FlagsTellTheKindsOfFilesApart) {
  this->world.addFile(this->at("a.txt"));
  this->world.addFolder(this->at("folder"));
  this->world.addPackage(this->at("text.rtfd"));
  this->world.addApplication(this->at("Tool.app"));
  this->world.addFile(this->at("target"));
  this->world.addAlias(this->at("alias.desktop"), this->at("target"));
  EXPECT_EQ(this->flags("a.txt"), itemFlag::plainFile);
  EXPECT_EQ(this->flags("folder"), itemFlag::container);
  EXPECT_EQ(this->flags("text.rtfd"), itemFlag::container | itemFlag::package);
  EXPECT_EQ(this->flags("Tool.app"),
            itemFlag::container | itemFlag::package | itemFlag::nativeApplication);
  EXPECT_EQ(this->flags("alias.desktop"), itemFlag::plainFile | itemFlag::aliasFile);
}

TYPED_TEST_P(FilesContract, AScriptHasTheTypeCodeOfScripts) {
  this->world.addScript(this->at("run.applescript"));
  this->world.addFile(this->at("a.txt"));
  EXPECT_EQ(this->typeCode("run.applescript"), scriptTypeCode);
  EXPECT_EQ(this->flags("run.applescript"), itemFlag::plainFile);
  EXPECT_EQ(this->typeCode("a.txt"), 0U);
}

TYPED_TEST_P(FilesContract, ALinkAtTheEndIsFollowedOrKeptAsAsked) {
  this->world.addFolder(this->at("folder"));
  this->world.addSymlink(this->at("link"), "folder");
  this->world.addSymlink(this->at("broken"), "nowhere");
  EXPECT_EQ(this->flags("link", FinalLink::follow), itemFlag::container);
  EXPECT_EQ(this->flags("link", FinalLink::keep), itemFlag::symlink);
  EXPECT_EQ(this->flags("broken", FinalLink::keep), itemFlag::symlink);
  EXPECT_FALSE(this->files().information(this->at("broken"), FinalLink::follow));
}

TYPED_TEST_P(FilesContract, ABookmarkLeadsToItsFile) {
  this->world.addFile(this->at("a b"));
  const auto bookmark = this->files().bookmark(this->at("a b"));
  ASSERT_TRUE(bookmark);
  const auto url = this->files().resolveBookmark(*bookmark, BookmarkResolution::withoutMounting);
  EXPECT_EQ(url, fileUrlOfPath(this->at("a b"), PathIs::file));
}

TYPED_TEST_P(FilesContract, TheUrlOfABookmarkedFolderEndsInASlash) {
  this->world.addFolder(this->at("folder"));
  const auto bookmark = this->files().bookmark(this->at("folder"));
  ASSERT_TRUE(bookmark);
  const auto url = this->files().resolveBookmark(*bookmark, BookmarkResolution::withoutInterface);
  EXPECT_EQ(url, fileUrlOfPath(this->at("folder"), PathIs::directory));
}

TYPED_TEST_P(FilesContract, ABookmarkFollowsAFileThatIsRenamedOrMoved) {
  this->world.addFile(this->at("folder/file"));
  this->world.addFolder(this->at("other"));
  const auto bookmark = this->files().bookmark(this->at("folder/file"));
  ASSERT_TRUE(bookmark);
  this->world.move(this->at("folder/file"), this->at("folder/renamed"));
  EXPECT_EQ(this->bookmarked(*bookmark), this->at("folder/renamed"));
  this->world.move(this->at("folder/renamed"), this->at("other/moved"));
  EXPECT_EQ(this->bookmarked(*bookmark), this->at("other/moved"));
}

TYPED_TEST_P(FilesContract, ABookmarkFollowsTheFolderAroundItsFile) {
  this->world.addFile(this->at("folder/file"));
  const auto bookmark = this->files().bookmark(this->at("folder/file"));
  ASSERT_TRUE(bookmark);
  this->world.move(this->at("folder"), this->at("renamed"));
  EXPECT_EQ(this->bookmarked(*bookmark), this->at("renamed/file"));
}

TYPED_TEST_P(FilesContract, ABookmarkPrefersItsFileToAnotherAtTheOldPlace) {
  this->world.addFile(this->at("file"));
  const auto bookmark = this->files().bookmark(this->at("file"));
  ASSERT_TRUE(bookmark);
  this->world.move(this->at("file"), this->at("moved"));
  this->world.addFile(this->at("file"));
  EXPECT_EQ(this->bookmarked(*bookmark), this->at("moved"));
}

TYPED_TEST_P(FilesContract, ABookmarkOfAFileThatIsGoneLeadsNowhere) {
  this->world.addFile(this->at("file"));
  const auto bookmark = this->files().bookmark(this->at("file"));
  ASSERT_TRUE(bookmark);
  this->world.remove(this->at("file"));
  EXPECT_FALSE(this->bookmarked(*bookmark));
}

TYPED_TEST_P(FilesContract, JunkIsNoBookmarkAndAMissingFileHasNone) {
  EXPECT_FALSE(this->bookmarked({}));
  EXPECT_FALSE(this->bookmarked({0, 1, 2, 255}));
  EXPECT_FALSE(this->files().bookmark(this->at("none")));
}

REGISTER_TYPED_TEST_SUITE_P(
    FilesContract, AFileAFolderAndAPackageAreTold, NothingStandsAtAMissingPath, ALinkIsSeenThrough,
    NothingStandsAtTheEndOfABrokenLinkOrALoop, AListingNamesEveryEntryOnce,
    BrowsingAnswersForEachNameWhatTheSingleQuestionsWould, WhatCannotBeListedCannotBeBrowsed,
    JunkIsNoAliasRecord, WhatCannotBeListedIsEmpty,
    ADisplayNameIsTheLastComponentWhereThereIsNoBetter, LinksAreResolvedAnywhereInAPath,
    TheParentOfALinkIsThatOfItsTarget, APathWithoutLinksComesBackUnchanged,
    APathThatDoesNotResolveComesBackUnchanged, ALeadingTildeIsTheHomeFolder,
    AnAliasLeadsToItsTarget, AChainOfAliasesIsFollowedToItsEnd, AnAliasLoopHasNoTarget,
    AnAliasWhoseTargetIsGoneHasNone, ALinkInsideTheTargetOfAnAliasStays, WhatIsNoAliasHasNoTarget,
    FlagsTellTheKindsOfFilesApart, AScriptHasTheTypeCodeOfScripts,
    ALinkAtTheEndIsFollowedOrKeptAsAsked, ABookmarkLeadsToItsFile,
    TheUrlOfABookmarkedFolderEndsInASlash, ABookmarkFollowsAFileThatIsRenamedOrMoved,
    ABookmarkFollowsTheFolderAroundItsFile, ABookmarkPrefersItsFileToAnotherAtTheOldPlace,
    ABookmarkOfAFileThatIsGoneLeadsNowhere, JunkIsNoBookmarkAndAMissingFileHasNone);

} // namespace tavrel
