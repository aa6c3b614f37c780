#include "contract/linux/files/LinuxFilesFixture.h"

namespace tavrel {
namespace {

INSTANTIATE_TYPED_TEST_SUITE_P(Linux, FilesContract, LinuxWorld);

TEST_F(LinuxFilesTest, ProgramsAreApplicationsAndPlainFiles) {
  constexpr std::uint32_t application = itemFlag::plainFile | itemFlag::nativeApplication;
  writeExecutable("tool", program);
  write("Tool.AppImage", "");
  writeEntry("tool.desktop", "Type=Application\nExec=tool\n");
  EXPECT_EQ(flags("tool"), application);
  EXPECT_EQ(flags("Tool.AppImage"), application);
  EXPECT_EQ(flags("tool.desktop"), application);
  EXPECT_EQ(files().kind(at("tool.desktop")), FileKind::plain);
}

TEST_F(LinuxFilesTest, AProgramOfTheOtherByteOrderIsOneToo) {
  std::string other = program;
  other[5] = 2;
  std::swap(other[16], other[17]);
  writeExecutable("tool", other);
  EXPECT_EQ(flags("tool"), itemFlag::plainFile | itemFlag::nativeApplication);
}

TEST_F(LinuxFilesTest, WhatCannotRunIsAPlainFile) {
  std::string objectFile = program;
  objectFile[16] = 1;
  write("without the bit", program);
  writeExecutable("object", objectFile);
  writeExecutable("library.so.1", program);
  writeExecutable("cut", program.substr(0, 10));
  writeExecutable("empty", "");
  writeExecutable("text", "some text that is no script");
  writeEntry("broken.desktop", "Name=no type\n");
  write("nonsense.desktop", "\xFF\xFE garbage");
  for (const char* name : {"without the bit", "object", "library.so.1", "cut", "empty", "text",
                           "broken.desktop", "nonsense.desktop"})
    EXPECT_EQ(flags(name), itemFlag::plainFile) << name;
}

TEST_F(LinuxFilesTest, TextWithAnInterpreterAndTheExecutableBitIsAScript) {
  writeExecutable("run", "#!/bin/sh\n");
  write("not run", "#!/bin/sh\n");
  write("old.scpt", "x");
  EXPECT_EQ(typeCode("run"), scriptTypeCode);
  EXPECT_EQ(flags("run"), itemFlag::plainFile);
  EXPECT_EQ(typeCode("not run"), 0U);
  EXPECT_EQ(typeCode("old.scpt"), 0U);
}

TEST_F(LinuxFilesTest, AFolderWithAnAppRunOrTheEndingOfOneIsAnApplication) {
  constexpr std::uint32_t bundle =
      itemFlag::container | itemFlag::package | itemFlag::nativeApplication;
  write("unpacked/AppRun", "#!/bin/sh\n");
  world.addFolder(at("Tool.AppDir"));
  world.addFolder(at("LOUD.APP"));
  world.addFile(at("file.app"));
  EXPECT_EQ(flags("unpacked"), bundle);
  EXPECT_EQ(flags("Tool.AppDir"), bundle);
  EXPECT_EQ(flags("LOUD.APP"), bundle);
  EXPECT_EQ(files().kind(at("unpacked")), FileKind::package);
  EXPECT_EQ(flags("file.app"), itemFlag::plainFile);
}

TEST_F(LinuxFilesTest, ApplicationFoldersShowWithoutTheirEnding) {
  world.addFolder(at("Path Tool.app"));
  world.addFile(at("file.app"));
  EXPECT_EQ(files().displayName(at("Path Tool.app")), "Path Tool");
  EXPECT_EQ(files().displayName(at("file.app")), "file.app");
}

TEST_F(LinuxFilesTest, EntriesShowTheirNameInTheUsersLanguage) {
  writeEntry("x.desktop", "Type=Application\nName=Editor\nName[de]=Textbearbeitung\n");
  writeEntry("nameless.desktop", "Type=Application\n");
  EXPECT_EQ(files().displayName(at("x.desktop")), "Editor");
  const std::string before = std::getenv("LC_ALL");
  setenv("LC_ALL", "de_AT.UTF-8", 1);
  EXPECT_EQ(files().displayName(at("x.desktop")), "Textbearbeitung");
  setenv("LC_ALL", before.c_str(), 1);
  EXPECT_EQ(files().displayName(at("nameless.desktop")), "nameless.desktop");
}

TEST_F(LinuxFilesTest, TheUrlOfAnAliasIsDecoded) {
  world.addFile(at("a b#%"));
  writeEntry("a.desktop", "Type=Link\nURL=file://localhost" + at("a%20b%23%25") + "\n");
  writeEntry("b.desktop", "Type=Link\nURL=file:" + at("a b#%") + "\n");
  EXPECT_EQ(files().resolveAlias(at("a.desktop")), at("a b#%"));
  EXPECT_EQ(files().resolveAlias(at("b.desktop")), at("a b#%"));
}

TEST_F(LinuxFilesTest, ALinkEntryToSomewhereElseIsAPlainFileWithoutTarget) {
  int number = 0;
  for (const char* url : {"http://example.com/", "file://elsewhere/etc", "file:", "",
                          "file:///a%00b", "relative/path", "%2Fetc"}) {
    const std::string name = std::to_string(++number) + ".desktop";
    writeEntry(name, "Type=Link\nURL=" + std::string(url) + "\n");
    EXPECT_FALSE(files().resolveAlias(at(name))) << url;
    EXPECT_TRUE(flags(name) & itemFlag::plainFile) << url;
  }
}

TEST_F(LinuxFilesTest, AnApplicationEntryIsTheEndOfAnAliasChain) {
  writeEntry("tool.desktop", "Type=Application\nExec=tool\n");
  world.addAlias(at("a.desktop"), at("tool.desktop"));
  EXPECT_EQ(files().resolveAlias(at("a.desktop")), at("tool.desktop"));
}

TEST_F(LinuxFilesTest, DotNamesBackupsAndNamesTheFolderHidesAreInvisible) {
  write(".hidden", "secret\nwith blank \n\nfolder\n");
  for (const char* name : {".dot", "a~", "secret", "with blank ", "plain", "Secret"})
    world.addFile(at(name));
  world.addFolder(at("folder"));
  for (const char* name : {".dot", "a~", "secret", "with blank ", "folder"})
    EXPECT_TRUE(flags(name, FinalLink::keep) & itemFlag::invisible) << name;
  for (const char* name : {"plain", "Secret"})
    EXPECT_FALSE(flags(name, FinalLink::keep) & itemFlag::invisible) << name;
}

TEST_F(LinuxFilesTest, ABookmarkFollowsAFileIntoAFolderOfTheUser) {
  world.addFile(at("far/away/file"));
  const std::string documents = world.home() + "/Documents/deep";
  world.addFolder(documents);
  const auto bookmark = files().bookmark(at("far/away/file"));
  ASSERT_TRUE(bookmark);
  world.move(at("far/away/file"), documents + "/file");
  EXPECT_EQ(bookmarked(*bookmark), documents + "/file");
  world.remove(documents);
}

TEST_F(LinuxFilesTest, ABookmarkIsLookedForThreeLevelsDeepOutsideHiddenFolders) {
  for (const char* place : {"a/b/reached", "a/b/c/too deep", ".hidden/file"}) {
    const std::string path = at(place);
    world.addFile(at("start/file"));
    const auto bookmark = files().bookmark(at("start/file"));
    ASSERT_TRUE(bookmark);
    world.addFolder(path.substr(0, path.rfind('/')));
    world.move(at("start/file"), path);
    const bool found = bookmarked(*bookmark) == path;
    EXPECT_EQ(found, path.ends_with("reached")) << path;
  }
}

TEST_F(LinuxFilesTest, AFileThatWasSavedAnewAtItsPlaceIsFoundThere) {
  world.addFile(at("file"));
  const auto bookmark = files().bookmark(at("file"));
  ASSERT_TRUE(bookmark);
  world.addFile(at("new")); // exists beside the old one, so that it is another file
  world.move(at("new"), at("file"));
  EXPECT_EQ(bookmarked(*bookmark), at("file"));
}

TEST_F(LinuxFilesTest, ABookmarkOfAnAncestorThatIsGoneIsLookedForInWhatIsLeft) {
  world.addFile(at("a/b/c/file"));
  const auto bookmark = files().bookmark(at("a/b/c/file"));
  ASSERT_TRUE(bookmark);
  world.move(at("a/b/c/file"), at("file"));
  world.remove(at("a"));
  EXPECT_EQ(bookmarked(*bookmark), at("file"));
}

TEST_F(LinuxFilesTest, TheHomeFolderHasNoTrailingSlash) {
  const std::string before = std::getenv("HOME");
  setenv("HOME", "/srv/me//", 1);
  EXPECT_EQ(files().homeDirectory(), "/srv/me");
  setenv("HOME", "", 1);
  EXPECT_TRUE(files().homeDirectory().starts_with('/')); // as the user database has it
  setenv("HOME", before.c_str(), 1);
}

} // namespace
} // namespace tavrel
