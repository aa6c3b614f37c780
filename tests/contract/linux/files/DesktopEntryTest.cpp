#include "platform/linux/files/DesktopEntry.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QTemporaryDir>

#include <cstdlib>
#include <fstream>
#include <sys/stat.h>

namespace tavrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

DesktopEntry parsed(std::string_view lines) {
  const auto entry = parseDesktopEntry("[Desktop Entry]\n" + std::string(lines));
  return entry.value_or(DesktopEntry{});
}

TEST(DesktopEntry, TellsEveryKeyOfAnApplication) {
  const DesktopEntry entry =
      parsed("Type=Application\nName=Editor\nIcon=pen\nExec=edit %F\nTryExec=edit\nPath=/srv\n"
             "Terminal=true\nDBusActivatable=true\nStartupNotify=true\nStartupWMClass=Edit\n"
             "MimeType=text/plain;text/x-log;\nCategories=Utility;TextEditor\nNoDisplay=true\n"
             "Hidden=true\nOnlyShowIn=XFCE;\nNotShowIn=KDE;GNOME;\n");
  EXPECT_EQ(entry.type(), "Application");
  EXPECT_EQ(entry.name(), "Editor");
  EXPECT_EQ(entry.icon(), "pen");
  EXPECT_EQ(entry.exec(), "edit %F");
  EXPECT_EQ(entry.tryExec(), "edit");
  EXPECT_EQ(entry.path(), "/srv");
  EXPECT_EQ(entry.startupWmClass(), "Edit");
  EXPECT_TRUE(entry.terminal() && entry.dbusActivatable() && entry.startupNotify());
  EXPECT_TRUE(entry.noDisplay() && entry.hidden());
  EXPECT_THAT(entry.mimeTypes(), ElementsAre("text/plain", "text/x-log"));
  EXPECT_THAT(entry.categories(), ElementsAre("Utility", "TextEditor"));
  EXPECT_THAT(entry.onlyShowIn(), ElementsAre("XFCE"));
  EXPECT_THAT(entry.notShowIn(), ElementsAre("KDE", "GNOME"));
}

TEST(DesktopEntry, AMissingKeyIsEmptyOrFalse) {
  const DesktopEntry entry = parsed("Type=Link\n");
  EXPECT_EQ(entry.url(), "");
  EXPECT_FALSE(entry.terminal());
  EXPECT_THAT(entry.mimeTypes(), IsEmpty());
}

TEST(DesktopEntry, ATextWithoutTheMainGroupIsNoEntry) {
  EXPECT_FALSE(parseDesktopEntry(""));
  EXPECT_FALSE(parseDesktopEntry("Type=Application\n"));
  EXPECT_FALSE(parseDesktopEntry("[Desktop Action x]\nName=x\n"));
}

TEST(DesktopEntry, ALocaleFindsTheNearestName) {
  const DesktopEntry entry = parsed("Name=Foo\nName[sr_YU]=c\nName[sr@Latn]=b\nName[sr]=d\n");
  EXPECT_EQ(entry.name("sr_YU.UTF-8@Latn"), "c");
  EXPECT_EQ(entry.name("sr_RS@Latn"), "b");
  EXPECT_EQ(entry.name("sr_RS"), "d");
  EXPECT_EQ(entry.name("de_DE.UTF-8"), "Foo");
  EXPECT_EQ(entry.name("C"), "Foo");
}

TEST(DesktopEntry, CountryAndModifierTogetherComeFirst) {
  const DesktopEntry entry = parsed("Name=Foo\nName[sr_YU]=c\nName[sr_YU@Latn]=a\n");
  EXPECT_EQ(entry.name("sr_YU@Latn"), "a");
}

TEST(DesktopEntry, EscapesInTextsAreUndone) {
  EXPECT_EQ(parsed("Name=\\sa\\tb\\nc\\rd\\\\e\n").name(), " a\tb\nc\rd\\e");
}

TEST(DesktopEntry, AnUnknownEscapeStaysAsWritten) {
  EXPECT_EQ(parsed("Exec=sh -c \"\\\\$HOME \\q\"\n").exec(), "sh -c \"\\$HOME \\q\"");
  EXPECT_EQ(parsed("Name=end\\\n").name(), "end\\");
}

TEST(DesktopEntry, AnEscapedSemicolonIsPartOfAListItem) {
  EXPECT_THAT(parsed("Keywords=a\\;b;;c\\\\;d\\").list("Keywords"),
              ElementsAre("a;b", "c\\", "d\\"));
}

TEST(DesktopEntry, CommentsBlankLinesAndMalformedLinesAreSkipped) {
  const auto entry = parseDesktopEntry("stray=1\n# comment\n\n[broken\nName=no\n[Desktop Entry]\n"
                                       "no equals sign\n=no key\n  Name =  Foo  \n");
  ASSERT_TRUE(entry);
  EXPECT_EQ(entry->name(), "Foo");
  EXPECT_EQ(entry->groups.size(), 1U);
}

TEST(DesktopEntry, LineEndsOfOtherSystemsAndAByteOrderMarkAreTolerated) {
  const auto entry = parseDesktopEntry("\xEF\xBB\xBF[Desktop Entry]\r\nName=Foo\r\nType=Link");
  ASSERT_TRUE(entry);
  EXPECT_EQ(entry->name(), "Foo");
  EXPECT_EQ(entry->type(), "Link");
}

TEST(DesktopEntry, OfAKeyWrittenTwiceTheLastCounts) {
  EXPECT_EQ(parsed("Name=a\nName=b\n").name(), "b");
}

TEST(DesktopEntry, KeysOfOtherGroupsAreNotItsOwn) {
  EXPECT_EQ(parsed("Type=Application\n[X-Other]\nName=no\n").name(), "");
}

TEST(DesktopEntry, ActionsNeedAGroupAndKeepTheirOrder) {
  const DesktopEntry entry =
      parsed("Actions=two;none;one;\n[Desktop Action one]\nName=One\nExec=x --one\n"
             "[Desktop Action two]\nName=Two\nName[de]=Zwei\nIcon=two\n");
  const auto actions = entry.actions("de_DE");
  ASSERT_EQ(actions.size(), 2U);
  EXPECT_EQ(actions[0].id + actions[0].name + actions[0].icon, "twoZweitwo");
  EXPECT_EQ(actions[1].name + actions[1].exec, "Onex --one");
}

TEST(DesktopEntry, BytesThatAreNoTextAreKept) {
  EXPECT_EQ(parsed("Name=\xE9t\xE9\n").name(), "\xE9t\xE9");
  EXPECT_EQ(parsed(std::string_view("Name=a\0b\n", 9)).name(), std::string("a\0b", 3));
}

TEST(DesktopEntry, TheLocaleOfMessagesComesFromTheStrongestVariable) {
  const std::string all = std::getenv("LC_ALL") ? std::getenv("LC_ALL") : "";
  setenv("LC_ALL", "", 1);
  setenv("LC_MESSAGES", "de_DE.UTF-8", 1);
  setenv("LANG", "ja_JP.UTF-8", 1);
  EXPECT_EQ(messagesLocale(), "de_DE.UTF-8");
  setenv("LC_ALL", "zh_CN.UTF-8", 1);
  EXPECT_EQ(messagesLocale(), "zh_CN.UTF-8");
  unsetenv("LC_MESSAGES");
  unsetenv("LANG");
  setenv("LC_ALL", all.c_str(), 1);
}

class DesktopEntryFile : public ::testing::Test {
protected:
  std::string write(const std::string& content) {
    const std::string path = path_;
    std::ofstream(path, std::ios::binary) << content;
    return path;
  }
  QTemporaryDir folder_;
  std::string path_ = folder_.filePath("x.desktop").toStdString();
};

TEST_F(DesktopEntryFile, IsLoadedFromADisk) {
  const auto entry = loadDesktopEntry(write("[Desktop Entry]\nName=Foo\n"));
  ASSERT_TRUE(entry);
  EXPECT_EQ(entry->name(), "Foo");
}

TEST_F(DesktopEntryFile, OfAHundredMegabytesIsRefused) {
  write("[Desktop Entry]\nName=Foo\n");
  ASSERT_EQ(truncate(path_.c_str(), 100 << 20), 0);
  EXPECT_FALSE(loadDesktopEntry(path_));
}

TEST_F(DesktopEntryFile, ThatIsAPipeIsNoneAndDoesNotWait) {
  ASSERT_EQ(mkfifo(path_.c_str(), 0600), 0);
  EXPECT_FALSE(loadDesktopEntry(path_));
}

TEST_F(DesktopEntryFile, ThatIsMissingOrAFolderIsNone) {
  EXPECT_FALSE(loadDesktopEntry(path_));
  EXPECT_FALSE(loadDesktopEntry(folder_.path().toStdString()));
}

} // namespace
} // namespace tavrel
