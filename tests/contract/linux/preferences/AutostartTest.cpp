#include "platform/linux/preferences/Autostart.h"

#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>

#include <csignal>
#include <sys/resource.h>

namespace tavrel {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

PropertyList item(const std::string& path, bool hide = false) {
  return PropertyList::Dictionary{{"Hide", hide}, {"Path", path}};
}

class Autostart : public ::testing::Test {
protected:
  Autostart() {
    for (const char* name : {"mine/autostart", "etc/autostart", "data/applications"})
      fs::create_directories(folder.path(name));
    folders.config = {folder.path("mine"), folder.path("etc")};
    folders.data = {folder.path("data")};
    folders.desktops = {"openbox"};
  }

  static std::string entry(const std::string& name, const std::string& more = {}) {
    return "[Desktop Entry]\nType=Application\nName=" + name + "\nExec=" + name + "\n" + more;
  }
  std::string application(const std::string& name) {
    return folder.write("data/applications/" + name + ".desktop", entry(name));
  }
  std::string systemEntry(const std::string& name, const std::string& more = {}) {
    return folder.write("etc/autostart/" + name + ".desktop", entry(name, more));
  }
  std::string ownEntry(const std::string& name, const std::string& more = {}) {
    return folder.write("mine/autostart/" + name + ".desktop", entry(name, more));
  }
  PropertyList::Array listed() { return loginItems(folders); }
  std::string own(const std::string& name) { return folder.read("mine/autostart/" + name); }
  std::vector<std::string> ownNames() {
    std::vector<std::string> names;
    for (const auto& each : fs::directory_iterator(folder.path("mine/autostart")))
      names.push_back(each.path().filename());
    std::sort(names.begin(), names.end());
    return names;
  }

  TemporaryFolder folder;
  XdgFolders folders;
};

TEST_F(Autostart, EntriesOfBothFoldersAreListedByName) {
  const std::string b = systemEntry("b");
  const std::string a = ownEntry("a");
  folder.write("mine/autostart/readme.txt", "no entry");
  folder.write("mine/autostart/broken.desktop", "junk");
  EXPECT_THAT(listed(), ElementsAre(item(a), item(b)));
}

TEST_F(Autostart, AnEntryIsCalledByTheApplicationOfItsName) {
  const std::string editor = application("editor");
  systemEntry("editor");
  EXPECT_THAT(listed(), ElementsAre(item(editor)));
}

TEST_F(Autostart, TheOwnEntryStandsForTheSystemsOfItsName) {
  systemEntry("a");
  ownEntry("a", "Hidden=true\n");
  EXPECT_THAT(listed(), IsEmpty());
}

TEST_F(Autostart, WhatIsForAnotherDesktopIsNotListed) {
  systemEntry("a", "OnlyShowIn=GNOME;\n");
  systemEntry("b", "NotShowIn=Openbox;\n");
  const std::string c = systemEntry("c", "OnlyShowIn=Openbox;\n");
  EXPECT_THAT(listed(), ElementsAre(item(c)));
}

TEST_F(Autostart, WhatIsAddedComesLastInItsOrderWithItsFlag) {
  const std::string foreign = ownEntry("zzz");
  const std::string second = application("b");
  const std::string first = application("c");
  EXPECT_TRUE(setLoginItems(folders, {item(foreign), item(first, true)}));
  EXPECT_TRUE(setLoginItems(folders, {item(foreign), item(first, true), item(second)}));
  EXPECT_THAT(listed(), ElementsAre(item(foreign), item(first, true), item(second)));
}

TEST_F(Autostart, AnAddedApplicationKeepsItsWholeEntry) {
  const std::string path = folder.write("data/applications/a.desktop",
                                        entry("a", "X-Rare=1\n[Desktop Action x]\nName=X\n"));
  EXPECT_TRUE(setLoginItems(folders, {item(path)}));
  EXPECT_EQ(own("a.desktop"), entry("a", "X-Rare=1\nX-Tavrel-Path=" + path +
                                             "\nX-Tavrel-Hide=false\nX-Tavrel-Order=1\n"
                                             "[Desktop Action x]\nName=X\n"));
}

TEST_F(Autostart, AProgramAndADocumentGetAnEntry) {
  const std::string program = folder.write("my $program", "#!/bin/sh\n");
  fs::permissions(program, fs::perms::owner_all);
  const std::string document = folder.write("100% \"x\".txt", "text");
  EXPECT_TRUE(setLoginItems(folders, {item(program), item(document)}));
  EXPECT_THAT(listed(), ElementsAre(item(program), item(document)));
  EXPECT_THAT(own("my $program.desktop"), ::testing::HasSubstr("/my \\\\$program\"\n"));
  EXPECT_THAT(own("100% \"x\".desktop"), ::testing::HasSubstr("Exec=xdg-open \""));
  EXPECT_THAT(own("100% \"x\".desktop"), ::testing::HasSubstr("100%% \\\\\"x\\\\\".txt\"\n"));
}

TEST_F(Autostart, TakingOutWhatWasAddedRemovesItsFile) {
  EXPECT_TRUE(setLoginItems(folders, {item(application("a"))}));
  EXPECT_TRUE(setLoginItems(folders, {}));
  EXPECT_THAT(ownNames(), IsEmpty());
}

TEST_F(Autostart, AnEntryOfTheSystemIsOverriddenAndNeverWritten) {
  const std::string text = entry("a", "X-Rare=1\n");
  systemEntry("a", "X-Rare=1\n");
  EXPECT_TRUE(setLoginItems(folders, {}));
  EXPECT_THAT(listed(), IsEmpty());
  EXPECT_EQ(folder.read("etc/autostart/a.desktop"), text);
  EXPECT_EQ(own("a.desktop"), text + "Hidden=true\n");
}

TEST_F(Autostart, AForeignEntryIsMarkedAndItsUnknownKeysStay) {
  ownEntry("a", "# note\nX-Rare = 1\n\n[Other]\nHidden=false\n");
  EXPECT_TRUE(setLoginItems(folders, {}));
  EXPECT_EQ(own("a.desktop"),
            entry("a", "# note\nX-Rare = 1\nHidden=true\n\n[Other]\nHidden=false\n"));
}

TEST_F(Autostart, WhatIsNotConcernedIsNotTouched) {
  const std::string a = ownEntry("a", "X-Rare = 1\n");
  const std::string b = ownEntry("b");
  const auto before = fs::last_write_time(a);
  EXPECT_TRUE(setLoginItems(folders, {item(a)}));
  EXPECT_EQ(fs::last_write_time(a), before);
  EXPECT_TRUE(fs::exists(b));
}

TEST_F(Autostart, WhatWasTakenOutComesBackAtTheEnd) {
  const std::string a = systemEntry("a");
  const std::string b = systemEntry("b");
  EXPECT_TRUE(setLoginItems(folders, {item(b)}));
  const std::string marked = folder.path("mine/autostart/a.desktop");
  EXPECT_TRUE(setLoginItems(folders, {item(b), item(marked, true)}));
  EXPECT_THAT(listed(), ElementsAre(item(b), item(marked, true)));
}

TEST_F(Autostart, AnotherFlagIsWrittenInPlace) {
  const std::string a = ownEntry("a");
  EXPECT_TRUE(setLoginItems(folders, {item(a, true)}));
  EXPECT_THAT(listed(), ElementsAre(item(a, true)));
  EXPECT_EQ(own("a.desktop"), entry("a", "X-Tavrel-Hide=true\n"));
}

TEST_F(Autostart, ALinkIntoTheSystemsFolderIsNotWrittenThrough) {
  const std::string system = application("a");
  fs::create_symlink(system, folder.path("mine/autostart/a.desktop"));
  EXPECT_TRUE(setLoginItems(folders, {}));
  EXPECT_EQ(folder.read("data/applications/a.desktop"), entry("a"));
  EXPECT_THAT(listed(), IsEmpty());
}

TEST_F(Autostart, ALinkThatCannotBeReplacedStays) {
  const std::string system = application("a");
  fs::create_symlink(system, folder.path("mine/autostart/a.desktop"));
  rlimit before{};
  ::getrlimit(RLIMIT_FSIZE, &before);
  const rlimit none{0, before.rlim_max};
  const auto handler = ::signal(SIGXFSZ, SIG_IGN);
  ::setrlimit(RLIMIT_FSIZE, &none);
  ::testing::internal::CaptureStderr();
  const bool done = setLoginItems(folders, {});
  ::setrlimit(RLIMIT_FSIZE, &before);
  ::signal(SIGXFSZ, handler);
  (void)::testing::internal::GetCapturedStderr();
  EXPECT_FALSE(done);
  EXPECT_EQ(fs::read_symlink(folder.path("mine/autostart/a.desktop")), system);
}

TEST_F(Autostart, TwoPathsOfOneNameAreTwoEntries) {
  const std::string one = folder.write("one.sh", "");
  fs::create_directories(folder.path("other"));
  const std::string two = folder.write("other/one.sh", "");
  EXPECT_TRUE(setLoginItems(folders, {item(one), item(two)}));
  EXPECT_THAT(listed(), ElementsAre(item(one), item(two)));
  EXPECT_THAT(ownNames(), ElementsAre("one-1.desktop", "one.desktop"));
}

TEST_F(Autostart, AFolderThatCannotBeWrittenIsTold) {
  const std::string a = application("a");
  fs::remove_all(folder.path("mine"));
  folder.write("mine", "a file");
  ::testing::internal::CaptureStderr();
  EXPECT_FALSE(setLoginItems(folders, {item(a)}));
  EXPECT_THAT(::testing::internal::GetCapturedStderr(), ::testing::HasSubstr("tavrel.autostart"));
}

TEST_F(Autostart, ElementsThatAreNoItemsAreLeftOut) {
  EXPECT_TRUE(setLoginItems(folders, {7, PropertyList::Dictionary{}, "text"}));
  EXPECT_THAT(ownNames(), IsEmpty());
}

} // namespace
} // namespace tavrel
