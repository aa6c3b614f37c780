#include "platform/linux/preferences/PreferenceWatch.h"

#include "platform/linux/preferences/LinuxPreferences.h"
#include "support/Desktop.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>

namespace tavrel {
namespace {

namespace fs = std::filesystem;

std::string listNaming(const std::string& value) {
  return "<plist version=\"1.0\"><dict><key>k</key><string>" + value + "</string></dict></plist>";
}

class PreferenceWatching : public ::testing::Test {
protected:
  PreferenceWatching() { folder.write("d.plist", listNaming("one")); }

  bool hears(int times) {
    return eventually([&] { return told >= times; });
  }

  // Longer than any change takes to be told.
  void settle() {
    QElapsedTimer time;
    time.start();
    (void)eventually([&] { return time.hasExpired(600); });
  }

  TemporaryFolder folder;
  int told = 0;
  std::string path = folder.path("d.plist");
};

TEST_F(PreferenceWatching, AFileWrittenInPlaceIsTold) {
  const PreferenceWatch watch(path, [this] { ++told; });
  folder.write("d.plist", listNaming("second"));
  EXPECT_TRUE(hears(1));
}

TEST_F(PreferenceWatching, AFileReplacedByRenamingIsToldEveryTime) {
  const PreferenceWatch watch(path, [this] { ++told; });
  for (int round = 1; round <= 3; ++round) {
    folder.write("new", listNaming("round " + std::to_string(round)));
    fs::rename(folder.path("new"), path);
    EXPECT_TRUE(hears(round)) << round;
  }
}

TEST_F(PreferenceWatching, AFileThatIsRemovedAndMadeIsTold) {
  const PreferenceWatch watch(path, [this] { ++told; });
  fs::remove(path);
  EXPECT_TRUE(hears(1));
  folder.write("d.plist", listNaming("back"));
  EXPECT_TRUE(hears(2));
}

TEST_F(PreferenceWatching, AFileInAFolderThatIsStillToBeMadeIsTold) {
  const PreferenceWatch watch(folder.path("a/b/d.plist"), [this] { ++told; });
  fs::create_directories(folder.path("a/b"));
  (void)eventually([] { return true; });
  folder.write("a/b/d.plist", listNaming("made"));
  EXPECT_TRUE(hears(1));
}

TEST_F(PreferenceWatching, AFileBehindALinkIsTold) {
  fs::create_directories(folder.path("dotfiles"));
  folder.write("dotfiles/mine.plist", listNaming("linked"));
  fs::create_symlink("dotfiles/mine.plist", folder.path("link.plist"));
  const PreferenceWatch watch(folder.path("link.plist"), [this] { ++told; });
  folder.write("dotfiles/new", listNaming("linked anew"));
  fs::rename(folder.path("dotfiles/new"), folder.path("dotfiles/mine.plist"));
  EXPECT_TRUE(hears(1));
}

TEST_F(PreferenceWatching, ManyWritesInARowAreOneChange) {
  const PreferenceWatch watch(path, [this] { ++told; });
  for (int write = 0; write < 50; ++write)
    folder.write("d.plist", listNaming(std::to_string(write)));
  EXPECT_TRUE(hears(1));
  settle();
  EXPECT_EQ(told, 1);
}

TEST_F(PreferenceWatching, WhoNeverStopsWritingIsNotWaitedFor) {
  const PreferenceWatch watch(path, [this] { ++told; });
  int write = 0;
  EXPECT_TRUE(eventually([&] {
    folder.write("d.plist", listNaming(std::to_string(++write)));
    return told > 0;
  }));
}

TEST_F(PreferenceWatching, AnotherFileOfTheFolderIsNotTold) {
  const PreferenceWatch watch(path, [this] { ++told; });
  folder.write("other.plist", listNaming("other"));
  settle();
  EXPECT_EQ(told, 0);
}

class ChangesElsewhere : public PreferenceWatching {
protected:
  LinuxPreferences preferences{folder.path()};
};

TEST_F(ChangesElsewhere, AnotherContentIsAChangeAndTheSameIsNone) {
  EXPECT_EQ(preferences.value("d", "k"), PropertyList("one"));
  EXPECT_FALSE(preferences.hasChangedElsewhere("d"));
  folder.write("d.plist", listNaming("two"));
  EXPECT_TRUE(preferences.hasChangedElsewhere("d"));
  preferences.synchronize("d");
  EXPECT_FALSE(preferences.hasChangedElsewhere("d"));
}

TEST_F(ChangesElsewhere, OnesOwnWriteIsNone) {
  preferences.setValue("d", "mine", 1);
  EXPECT_FALSE(preferences.hasChangedElsewhere("d"));
  preferences.synchronize("d");
  EXPECT_FALSE(preferences.hasChangedElsewhere("d"));
}

TEST_F(ChangesElsewhere, AMalformedFileIsNoneAndIsTold) {
  EXPECT_EQ(preferences.value("d", "k"), PropertyList("one"));
  folder.write("d.plist", "<plist><dict><key>k</key><str");
  ::testing::internal::CaptureStderr();
  EXPECT_FALSE(preferences.hasChangedElsewhere("d"));
  const std::string lines = ::testing::internal::GetCapturedStderr();
  EXPECT_NE(lines.find("what was read before stays in effect"), std::string::npos) << lines;
}

TEST_F(ChangesElsewhere, WhatWasReadBeforeOutlivesAMalformedFile) {
  EXPECT_EQ(preferences.value("d", "k"), PropertyList("one"));
  folder.write("d.plist", "junk");
  EXPECT_TRUE(preferences.synchronize("d"));
  EXPECT_EQ(preferences.value("d", "k"), PropertyList("one"));
  preferences.setValue("d", "mine", 1);
  EXPECT_TRUE(preferences.synchronize("d"));
  EXPECT_EQ(folder.read("d.plist.malformed-1"), "junk");
  LinuxPreferences another(folder.path());
  EXPECT_EQ(another.value("d", "k"), PropertyList("one"));
  EXPECT_EQ(another.value("d", "mine"), PropertyList(1));
}

TEST_F(ChangesElsewhere, ARemovedFileIsAChange) {
  EXPECT_EQ(preferences.value("d", "k"), PropertyList("one"));
  fs::remove(path);
  EXPECT_TRUE(preferences.hasChangedElsewhere("d"));
  preferences.synchronize("d");
  EXPECT_EQ(preferences.value("d", "k"), std::nullopt);
}

} // namespace
} // namespace tavrel
