#include "platform/linux/preferences/RecentItemsView.h"

#include "contract/linux/applications/FakeApplications.h"
#include "platform/linux/files/FileBookmark.h"
#include "platform/linux/files/LinuxFiles.h"
#include "platform/linux/places/NetworkPlaces.h"
#include "platform/linux/places/RecentUsesFile.h"
#include "platform/linux/preferences/LinuxPreferences.h"
#include "platform/linux/system/FileDescriptor.h"
#include "support/EnvironmentVariable.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sys/inotify.h>

namespace tavrel {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;

std::string bookmarkElement(const std::string& url, const std::string& modified,
                            const std::string& inside = {}) {
  return "<bookmark href=\"" + url + "\" added=\"2020-01-01T00:00:00Z\" modified=\"" + modified +
         "\"><info><metadata owner=\"http://freedesktop.org\">" + inside +
         "</metadata></info></bookmark>\n";
}

std::string usedBy(const std::string& name, const std::string& exec, const std::string& when) {
  return "<bookmark:applications><bookmark:application name=\"" + name + "\" exec=\"" + exec +
         "\" modified=\"" + when + "\" count=\"1\"/></bookmark:applications>";
}

std::string xbel(const std::string& inside) {
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<xbel version=\"1.0\" "
         "xmlns:bookmark=\"http://www.freedesktop.org/standards/desktop-bookmarks\">\n" +
         inside + "</xbel>\n";
}

class RecentItemsOfTheDesktop : public ::testing::Test {
protected:
  RecentItemsOfTheDesktop() {
    for (const char* folder : {"data", "config/gtk-3.0", "run/gvfs", "docs"})
      std::filesystem::create_directories(scratch.path() / folder);
  }

  std::string at(const std::string& name) { return (scratch.path() / name).string(); }
  void recentlyUsed(const std::string& text) { write(at("data/recently-used.xbel"), text); }
  std::string document(const std::string& name) {
    write(at("docs/" + name), "text");
    return "file://" + at("docs/" + name);
  }

  PropertyList::Array items(const std::string& key) {
    const PropertyList::Dictionary all = recentItems(registry, uses);
    return *all.at(key).arrayFor("CustomListItems");
  }
  std::vector<std::string> names(const std::string& key) {
    std::vector<std::string> result;
    for (const PropertyList& item : items(key))
      result.push_back(*item.stringFor("Name"));
    return result;
  }

  ScratchFolder scratch;
  EnvironmentVariable data{"XDG_DATA_HOME", at("data")};
  EnvironmentVariable config{"XDG_CONFIG_HOME", at("config")};
  EnvironmentVariable runtime{"XDG_RUNTIME_DIR", at("run")};
  FakeApplications applications;
  ApplicationRegistry registry{applications.folders()};
  CachedRecentUses uses;
};

TEST_F(RecentItemsOfTheDesktop, DocumentsComeNewestFirstWithBookmarksThatFindThem) {
  recentlyUsed(xbel(bookmarkElement(document("old.txt"), "2021-01-01T10:00:00Z") +
                    bookmarkElement(document("new.txt"), "2023-01-01T10:00:00.5Z") +
                    bookmarkElement(document("middle.txt"), "2022-01-01T10:00:00Z")));
  EXPECT_THAT(names("RecentDocuments"), ElementsAre("new.txt", "middle.txt", "old.txt"));
  EXPECT_EQ(LinuxFiles().resolveBookmark(*items("RecentDocuments")[0].dataFor("Bookmark"),
                                         BookmarkResolution::withoutMounting),
            document("new.txt"));
}

TEST_F(RecentItemsOfTheDesktop, TimesDownToTheMicrosecondAreRead) {
  recentlyUsed(xbel(bookmarkElement("file:///first", "2021-01-01T10:00:00.100000Z") +
                    bookmarkElement("file:///third", "2021-01-01T10:00:00.900000Z") +
                    bookmarkElement("file:///second", "2021-01-01T10:00:00.499999Z")));
  EXPECT_THAT(names("RecentDocuments"), ElementsAre("third", "second", "first"));
}

TEST_F(RecentItemsOfTheDesktop, OfThousandsOfUsesByOneApplicationItIsListedOnce) {
  applications.add("writer");
  std::string text;
  for (int i = 0; i < 3000; ++i)
    text += bookmarkElement("file:///d/" + std::to_string(i), "2021-01-01T10:00:00Z",
                            usedBy("Writer", "'writer %u'", "2021-01-01T10:00:00Z"));
  recentlyUsed(xbel(text));
  EXPECT_THAT(names("RecentApplications"), ElementsAre("writer"));
}

TEST_F(RecentItemsOfTheDesktop, WhatIsMarkedAsPrivateIsLeftOutWithItsApplications) {
  applications.add("writer");
  recentlyUsed(xbel(bookmarkElement(document("secret.txt"), "2021-01-01T10:00:00Z",
                                    "<bookmark:private/>" +
                                        usedBy("writer", "'writer %u'", "2021-01-01T10:00:00Z"))));
  EXPECT_THAT(names("RecentDocuments"), IsEmpty());
  EXPECT_THAT(names("RecentApplications"), IsEmpty());
}

TEST_F(RecentItemsOfTheDesktop, ADocumentThatIsGoneStaysWithABookmarkThatLeadsNowhere) {
  recentlyUsed(xbel(bookmarkElement("file:///nowhere/at%20all.txt", "2021-01-01T10:00:00Z")));
  ASSERT_THAT(names("RecentDocuments"), ElementsAre("at all.txt"));
  EXPECT_FALSE(LinuxFiles().resolveBookmark(*items("RecentDocuments")[0].dataFor("Bookmark"),
                                            BookmarkResolution::withoutMounting));
}

TEST_F(RecentItemsOfTheDesktop, NamesOfAnyBytesAreFound) {
  const std::string path = at("docs/\xFF\u202Etxt.\nx");
  write(path, "text");
  recentlyUsed(xbel(
      bookmarkElement("file://" + at("docs/") + "%FF%E2%80%AEtxt.%0Ax", "2021-01-01T10:00:00Z")));
  ASSERT_THAT(names("RecentDocuments"), ElementsAre("\xFF\u202Etxt.\nx"));
  const auto bookmark = bookmarkFromData(*items("RecentDocuments")[0].dataFor("Bookmark"));
  ASSERT_TRUE(bookmark);
  EXPECT_EQ(bookmark->path, path);
  EXPECT_NE(bookmark->identity.inode, 0U);
}

TEST_F(RecentItemsOfTheDesktop, OneFileIsListedOnceAndTenAreEnough) {
  std::string text;
  for (int i = 10; i < 40; ++i)
    text += bookmarkElement("file:///d/" + std::to_string(i % 20),
                            "2021-01-01T10:00:" + std::to_string(i) + "Z");
  recentlyUsed(xbel(text));
  const auto found = names("RecentDocuments");
  EXPECT_THAT(found, SizeIs(10));
  EXPECT_EQ(found.front(), "19");
}

TEST_F(RecentItemsOfTheDesktop, ApplicationsAreThoseThatUsedSomethingLately) {
  const std::string writer = applications.add("writer");
  applications.add("viewer");
  recentlyUsed(xbel(bookmarkElement("file:///a", "2021-01-01T10:00:00Z",
                                    usedBy("Writer", "'writer %u'", "2021-01-01T10:00:00Z")) +
                    bookmarkElement("file:///b", "2022-01-01T10:00:00Z",
                                    usedBy("viewer", "/else/where", "2022-01-01T10:00:00Z")) +
                    bookmarkElement("file:///c", "2020-01-01T10:00:00Z",
                                    usedBy("viewer", "'viewer %u'", "2019-01-01T10:00:00Z") +
                                        usedBy("unknown", "'unknown'", "2023-01-01T10:00:00Z"))));
  EXPECT_THAT(names("RecentApplications"), ElementsAre("viewer", "writer"));
  EXPECT_EQ(bookmarkFromData(*items("RecentApplications")[1].dataFor("Bookmark"))->path, writer);
}

TEST_F(RecentItemsOfTheDesktop, OfSeveralEntriesOfOneProgramTheOneThatOpensFilesIsMeant) {
  const std::string program = applications.addProgram("writer");
  applications.addEntry("a settings", "Exec=" + program + " --preferences\n");
  applications.addEntry("b hidden", "Exec=" + program + " %U\nNoDisplay=true\n");
  applications.addEntry("c writer", "Exec=" + program + " %U\n");
  recentlyUsed(xbel(bookmarkElement("file:///a", "2021-01-01T10:00:00Z",
                                    usedBy("x", "'writer %u'", "2021-01-01T10:00:00Z"))));
  EXPECT_THAT(names("RecentApplications"), ElementsAre("c writer"));
}

TEST_F(RecentItemsOfTheDesktop, ServersAreConnectionsThenMountsThenBookmarksEachOnce) {
  write(at("config/gtk-3.0/servers"),
        xbel("<bookmark href=\"smb://old/share\" modified=\"2020-01-01T00:00:00Z\"/>\n"
             "<bookmark href=\"sftp://me@nas/\" modified=\"2021-01-01T00:00:00Z\">"
             "<title>The NAS</title></bookmark>\n"));
  std::filesystem::create_directory(at("run/gvfs/smb-share:server=box,share=music"));
  std::filesystem::create_directory(at("run/gvfs/mtp:host=phone"));
  write(at("config/gtk-3.0/bookmarks"),
        "file:///home/me/Documents\nsftp://me@nas\nftp://files.example.org/pub Public files\n");
  EXPECT_THAT(names("RecentServers"),
              ElementsAre("The NAS", "share on old", "music on box", "Public files"));
  EXPECT_EQ(networkPlaceOfVolume("/Volumes/Public files/"), "ftp://files.example.org/pub");
  EXPECT_EQ(networkPlaceOfVolume("/Volumes/unknown/"), std::nullopt);
}

TEST_F(RecentItemsOfTheDesktop, WithoutAnyFileThereIsNothing) {
  for (const char* key : {"RecentApplications", "RecentDocuments", "RecentServers"})
    EXPECT_THAT(items(key), IsEmpty()) << key;
}

TEST_F(RecentItemsOfTheDesktop, OfAMalformedFileWhatStandsBeforeTheMistakeIsTaken) {
  recentlyUsed("<xbel>" + bookmarkElement("file:///a", "2021-01-01T10:00:00Z") + "<bookmark <");
  ::testing::internal::CaptureStderr();
  EXPECT_THAT(names("RecentDocuments"), ElementsAre("a"));
  EXPECT_THAT(::testing::internal::GetCapturedStderr(), HasSubstr("malformed in line"));
}

/// Counts how often the file was opened since the last count.
class RecentFileOpened {
public:
  explicit RecentFileOpened(const std::string& path) {
    ::inotify_add_watch(watch_.get(), path.c_str(), IN_OPEN);
  }
  int count() {
    alignas(inotify_event) char events[4096];
    int opened = 0;
    for (ssize_t got; (got = ::read(watch_.get(), events, sizeof events)) > 0;)
      opened += static_cast<int>(static_cast<std::size_t>(got) / sizeof(inotify_event));
    return opened;
  }

private:
  FileDescriptor watch_{::inotify_init1(IN_NONBLOCK | IN_CLOEXEC)};
};

TEST_F(RecentItemsOfTheDesktop, AFileThatHasNotChangedIsNotReadAgain) {
  recentlyUsed(xbel(bookmarkElement("file:///old", "2021-01-01T10:00:00Z")));
  RecentFileOpened opened(at("data/recently-used.xbel"));
  EXPECT_TRUE(waitFor([&] { // one just written may be written again and look the same
    EXPECT_THAT(names("RecentDocuments"), ElementsAre("old"));
    (void)opened.count();
    EXPECT_THAT(names("RecentDocuments"), ElementsAre("old"));
    return opened.count() == 0;
  }));
  recentlyUsed(xbel(bookmarkElement("file:///new", "2021-01-01T10:00:00Z")));
  EXPECT_THAT(names("RecentDocuments"), ElementsAre("new"));
  recentlyUsed(xbel(bookmarkElement("file:///NEW", "2021-01-01T10:00:00Z")));
  EXPECT_THAT(names("RecentDocuments"), ElementsAre("NEW")) << "as long, and at the same moment";
}

TEST_F(RecentItemsOfTheDesktop, WhatIsWrongWithAFileIsSaidOnceAndNotForEachSection) {
  recentlyUsed("<xbel><bookmark <");
  (void)waitFor([&] { // until it counts as settled
    ::testing::internal::CaptureStderr();
    (void)items("RecentDocuments");
    (void)items("RecentDocuments");
    const std::string said = ::testing::internal::GetCapturedStderr();
    return said.find("malformed") == said.rfind("malformed");
  });
  ::testing::internal::CaptureStderr();
  for (const char* key : {"RecentApplications", "RecentDocuments", "RecentServers"})
    EXPECT_THAT(items(key), IsEmpty());
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
}

TEST_F(RecentItemsOfTheDesktop, JunkAndHugeFilesAndPipesAreNoRecentItems) {
  for (const std::string& text : {std::string(), std::string("\0\xFF<", 3), std::string("{}"),
                                  std::string((16 << 20) + 1, ' ')}) {
    recentlyUsed(text);
    ::testing::internal::CaptureStderr();
    EXPECT_THAT(names("RecentDocuments"), IsEmpty());
    EXPECT_THAT(::testing::internal::GetCapturedStderr(), HasSubstr("recently-used.xbel"));
  }
  std::filesystem::remove(at("data/recently-used.xbel"));
  ASSERT_EQ(::mkfifo(at("data/recently-used.xbel").c_str(), 0600), 0);
  EXPECT_THAT(names("RecentDocuments"), IsEmpty());
}

TEST_F(RecentItemsOfTheDesktop, AFileThatDeclaresEntitiesIsNotRead) {
  recentlyUsed("<!DOCTYPE xbel [<!ENTITY a \"aaaaaaaaaa\"><!ENTITY b \"&a;&a;&a;&a;\">]><xbel>" +
               bookmarkElement("file:///&b;", "2021-01-01T10:00:00Z") + "</xbel>");
  EXPECT_THAT(names("RecentDocuments"), IsEmpty());
}

TEST_F(RecentItemsOfTheDesktop, NestingOfAnyDepthIsRead) {
  std::string deep;
  for (int i = 0; i < 200'000; ++i)
    deep += "<folder>";
  recentlyUsed("<xbel>" + deep);
  EXPECT_THAT(names("RecentDocuments"), IsEmpty());
}

TEST_F(RecentItemsOfTheDesktop, AViewThatCanBeWrittenGetsTheWholeDomain) {
  PropertyList::Dictionary kept{{"n", 1}};
  const LinuxPreferences::View view{[&] { return kept; },
                                    [&](const PropertyList::Dictionary& values) {
                                      kept = values;
                                      return true;
                                    }};
  LinuxPreferences preferences(at("config"), {{"view", view}});
  preferences.setValue("view", "m", 2);
  EXPECT_EQ(kept.size(), 1U);
  EXPECT_TRUE(preferences.synchronize("view"));
  EXPECT_EQ(kept, (PropertyList::Dictionary{{"m", 2}, {"n", 1}}));
  kept.insert({"of another program", 4});
  EXPECT_TRUE(preferences.persistentDomain("view")->contains("of another program"));
  preferences.removePersistentDomain("view");
  preferences.setPersistentDomain("view", {{"o", 3}});
  EXPECT_TRUE(preferences.synchronize("view"));
  EXPECT_EQ(preferences.persistentDomain("view"), (PropertyList::Dictionary{{"o", 3}}));
}

TEST_F(RecentItemsOfTheDesktop, ADomainWithAViewIsRenewedBySynchronisingAndCannotBeWritten) {
  std::int64_t count = 0;
  const LinuxPreferences::View view{[&] { return PropertyList::Dictionary{{"n", ++count}}; }};
  LinuxPreferences preferences(at("config"), {{"view", view}});
  EXPECT_EQ(preferences.value("view", "n"), PropertyList(std::int64_t{1}));
  EXPECT_EQ(preferences.value("view", "n"), PropertyList(std::int64_t{1}));
  EXPECT_TRUE(preferences.synchronize("view"));
  EXPECT_EQ(preferences.value("view", "n"), PropertyList(std::int64_t{2}));
  preferences.setValue("view", "n", 7);
  EXPECT_FALSE(preferences.synchronize("view"));
  EXPECT_EQ(preferences.value("view", "n"), PropertyList(std::int64_t{3}));
  EXPECT_FALSE(std::filesystem::exists(at("config/view.plist")));
}

} // namespace
} // namespace tavrel
