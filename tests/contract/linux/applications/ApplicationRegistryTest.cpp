#include "platform/linux/applications/ApplicationRegistry.h"

#include "support/ScratchFolders.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavrel {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// The user's folders above those of the system.
class ApplicationRegistryTest : public ::testing::Test {
protected:
  ApplicationRegistryTest() {
    for (const fs::path& folder : {home / "applications", system / "applications", config})
      fs::create_directories(folder);
  }

  static void addEntry(const fs::path& data, const std::string& id, const std::string& lines) {
    fs::create_directories((data / "applications" / id).parent_path());
    write(data / "applications" / id,
          "[Desktop Entry]\nType=Application\nName=" + id + "\nExec=true\n" + lines);
  }

  std::vector<std::string> handlers(const std::string& type) {
    registry.refresh();
    std::vector<std::string> ids;
    for (const InstalledApplication* handler : registry.handlersOf(type))
      ids.push_back(handler->id);
    return ids;
  }

  ScratchFolder scratch;
  fs::path home = scratch.path() / "home";
  fs::path system = scratch.path() / "system";
  fs::path config = scratch.path() / "config";
  ApplicationRegistry registry{{{home, system}, {config}, {"xdesk"}}};
};

TEST_F(ApplicationRegistryTest, AnEntryOpensTheTypesItNames) {
  addEntry(system, "a.desktop", "MimeType=text/x;image/y;\n");
  addEntry(system, "b.desktop", "MimeType=image/y\n");
  EXPECT_THAT(handlers("image/y"), ElementsAre("a.desktop", "b.desktop"));
  EXPECT_THAT(handlers("text/x"), ElementsAre("a.desktop"));
  EXPECT_THAT(handlers("text/z"), IsEmpty());
}

TEST_F(ApplicationRegistryTest, TheUsersEntriesComeBeforeTheSystems) {
  addEntry(system, "a.desktop", "MimeType=text/x\n");
  addEntry(home, "b.desktop", "MimeType=text/x\n");
  EXPECT_THAT(handlers("text/x"), ElementsAre("b.desktop", "a.desktop"));
}

TEST_F(ApplicationRegistryTest, AnEntryHidesOneOfTheSameIdInALesserFolder) {
  addEntry(system, "a.desktop", "MimeType=text/x\n");
  addEntry(home, "a.desktop", "MimeType=text/z\n");
  EXPECT_THAT(handlers("text/x"), IsEmpty());
  EXPECT_EQ(registry.find("a.desktop")->path, home / "applications/a.desktop");
}

TEST_F(ApplicationRegistryTest, ADeletedEntryIsNotThere) {
  addEntry(system, "a.desktop", "MimeType=text/x\n");
  addEntry(home, "a.desktop", "Hidden=true\n");
  EXPECT_THAT(handlers("text/x"), IsEmpty());
  EXPECT_EQ(registry.find("a.desktop"), nullptr);
}

TEST_F(ApplicationRegistryTest, NamesAreThoseOfTheLastRefresh) {
  addEntry(system, "a.b.desktop", "Name=Drawing\n");
  registry.refresh();
  for (const char* name : {"Drawing", "a.b", "a.b.desktop"})
    EXPECT_TRUE(registry.isName(name)) << name;
  for (const char* name : {"", "a", "drawing", "Painting"})
    EXPECT_FALSE(registry.isName(name)) << name;
  fs::remove(system / "applications/a.b.desktop");
  addEntry(home, "c.desktop", "Name=Painting\n");
  EXPECT_FALSE(registry.isName("Painting"));
  registry.refresh();
  EXPECT_TRUE(registry.isName("Painting"));
  EXPECT_FALSE(registry.isName("Drawing"));
}

TEST_F(ApplicationRegistryTest, AnEntryInAFolderCarriesItsNameInTheId) {
  addEntry(system, "kde/tools/a.desktop", "");
  registry.refresh();
  EXPECT_NE(registry.find("kde-tools-a.desktop"), nullptr);
}

TEST_F(ApplicationRegistryTest, TheDefaultComesFirst) {
  addEntry(system, "a.desktop", "MimeType=text/x\n");
  addEntry(system, "b.desktop", "MimeType=text/x\n");
  write(config / "mimeapps.list", "[Default Applications]\ntext/x=gone.desktop;b.desktop;\n");
  EXPECT_THAT(handlers("text/x"), ElementsAre("b.desktop", "a.desktop"));
}

TEST_F(ApplicationRegistryTest, TheDesktopsOwnDefaultsComeBeforeTheGeneralOnes) {
  addEntry(system, "a.desktop", "");
  addEntry(system, "b.desktop", "");
  addEntry(system, "c.desktop", "");
  write(config / "mimeapps.list", "[Default Applications]\ntext/x=b.desktop\n");
  write(config / "xdesk-mimeapps.list", "[Default Applications]\ntext/x=a.desktop\n");
  write(system / "applications/mimeapps.list", "[Default Applications]\ntext/x=c.desktop\n");
  EXPECT_THAT(handlers("text/x"), ElementsAre("a.desktop", "b.desktop", "c.desktop"));
}

TEST_F(ApplicationRegistryTest, WhatWasAddedByHandComesBeforeWhatEntriesSay) {
  addEntry(system, "a.desktop", "MimeType=text/x\n");
  addEntry(system, "b.desktop", "");
  write(config / "mimeapps.list", "[Added Associations]\ntext/x=b.desktop\n");
  EXPECT_THAT(handlers("text/x"), ElementsAre("b.desktop", "a.desktop"));
}

TEST_F(ApplicationRegistryTest, WhatWasRemovedByHandStaysAway) {
  addEntry(system, "a.desktop", "MimeType=text/x\n");
  addEntry(system, "b.desktop", "MimeType=text/x\n");
  write(config / "mimeapps.list", "[Removed Associations]\ntext/x=a.desktop\n");
  write(system / "applications/mimeapps.list", "[Added Associations]\ntext/x=a.desktop\n");
  EXPECT_THAT(handlers("text/x"), ElementsAre("b.desktop"));
}

TEST_F(ApplicationRegistryTest, AChangeIsSeenWhenItIsAskedFor) {
  addEntry(system, "a.desktop", "MimeType=text/x\n");
  EXPECT_THAT(handlers("text/x"), ElementsAre("a.desktop"));
  addEntry(system, "a.desktop", "MimeType=text/changed\n");
  addEntry(system, "b.desktop", "MimeType=text/x\n");
  EXPECT_THAT(handlers("text/x"), ElementsAre("b.desktop"));
  fs::remove(system / "applications/b.desktop");
  EXPECT_THAT(handlers("text/x"), IsEmpty());
}

TEST_F(ApplicationRegistryTest, BrokenEntriesAndListsAreLeftOut) {
  write(system / "applications/empty.desktop", "");
  write(system / "applications/link.desktop", "[Desktop Entry]\nType=Link\nURL=file:///\n");
  fs::create_directory(system / "applications/folder.desktop");
  fs::create_symlink("loop.desktop", system / "applications/loop.desktop");
  fs::create_directory_symlink("..", system / "applications/up");
  ::mkfifo((system / "applications/pipe.desktop").c_str(), 0600);
  write(config / "mimeapps.list", "junk\n[Default Applications\ntext/x=a\n[]\n=\n\0\xFF");
  EXPECT_THAT(handlers("text/x"), IsEmpty());
  EXPECT_THAT(registry.applications(), IsEmpty());
}

TEST(MimeAppsList, SkipsCommentsAndBlanks) {
  const MimeAppsList list =
      parseMimeAppsList("# c\r\n[Default Applications]\r\n#text/x=a\n text/x = a ;; b ; \n");
  EXPECT_THAT(list.defaults.at("text/x"), ElementsAre("a", "b"));
  EXPECT_EQ(list.defaults.size(), 1U);
}

} // namespace
} // namespace tavrel
