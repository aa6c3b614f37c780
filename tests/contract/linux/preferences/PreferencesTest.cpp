#include "contract/PreferencesContract.h"

#include "platform/linux/preferences/LinuxPreferences.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>

#include <sys/stat.h>

namespace tavrel {
namespace {

namespace fs = std::filesystem;

struct LinuxWorld {
  TemporaryFolder folder;
  LinuxPreferences store{folder.path("config")};
  Preferences& preferences() { return store; }
  void elsewhere(const std::string& domain, const std::string& key, PropertyList value) {
    LinuxPreferences another(folder.path("config"));
    another.setValue(domain, key, std::move(value));
    another.synchronize(domain);
  }
};

INSTANTIATE_TYPED_TEST_SUITE_P(Linux, PreferencesContract, LinuxWorld);

class PreferenceFiles : public ::testing::Test {
protected:
  std::string stored() { return folder.read("d.plist"); }
  std::vector<std::string> names() {
    std::vector<std::string> result;
    for (const auto& entry : fs::directory_iterator(folder.path()))
      result.push_back(entry.path().filename());
    std::sort(result.begin(), result.end());
    return result;
  }
  bool storeOne() {
    preferences.setValue("d", "key", 1);
    return preferences.synchronize("d");
  }

  TemporaryFolder folder;
  LinuxPreferences preferences{folder.path()};
};

TEST_F(PreferenceFiles, ANewFileIsXmlForItsOwnerAlone) {
  ASSERT_TRUE(storeOne());
  EXPECT_TRUE(stored().starts_with("<?xml"));
  struct stat status = {};
  ASSERT_EQ(::stat(folder.path("d.plist").c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777U, 0600U);
  EXPECT_THAT(names(), ::testing::ElementsAre("d.plist")) << "no temporary file is left";
}

TEST_F(PreferenceFiles, AFileKeepsItsFormAndItsMode) {
  const auto binary =
      encodePropertyList(PropertyList::Dictionary{{"old", "value"}}, PropertyListForm::binary);
  folder.write("d.plist", std::string(binary->begin(), binary->end()));
  fs::permissions(folder.path("d.plist"), fs::perms(0644));
  ASSERT_TRUE(storeOne());
  EXPECT_TRUE(stored().starts_with("bplist00"));
  EXPECT_EQ(fs::status(folder.path("d.plist")).permissions(), fs::perms(0644));
  LinuxPreferences again(folder.path());
  EXPECT_EQ(again.value("d", "old"), PropertyList("value"));
}

TEST_F(PreferenceFiles, AMalformedFileReadsAsEmptyAndIsMovedAsideBeforeAWrite) {
  folder.write("d.plist", "<plist><dict><key>half");
  folder.write("d.plist.malformed-1", "an earlier one");
  EXPECT_EQ(preferences.value("d", "half"), std::nullopt);
  EXPECT_EQ(stored(), "<plist><dict><key>half");
  ASSERT_TRUE(storeOne());
  EXPECT_EQ(folder.read("d.plist.malformed-1"), "an earlier one");
  EXPECT_EQ(folder.read("d.plist.malformed-2"), "<plist><dict><key>half");
  EXPECT_TRUE(stored().starts_with("<?xml"));
}

TEST_F(PreferenceFiles, SynchronisingWithoutAChangeNeverTouchesAMalformedFile) {
  folder.write("d.plist", "nonsense");
  EXPECT_TRUE(preferences.synchronize("d"));
  EXPECT_EQ(stored(), "nonsense");
  EXPECT_THAT(names(), ::testing::ElementsAre("d.plist"));
}

TEST_F(PreferenceFiles, AFileWhoseRootIsNoDictionaryIsMalformed) {
  folder.write("d.plist", "<plist><array><string>key</string></array></plist>");
  ASSERT_TRUE(storeOne());
  EXPECT_TRUE(fs::exists(folder.path("d.plist.malformed-1")));
}

TEST_F(PreferenceFiles, AFolderInPlaceOfTheFileIsLeftAlone) {
  fs::create_directory(folder.path("d.plist"));
  folder.write("d.plist/inside", "kept");
  EXPECT_EQ(preferences.value("d", "key"), std::nullopt);
  EXPECT_FALSE(storeOne());
  EXPECT_EQ(preferences.value("d", "key"), PropertyList(1)) << "the change stays pending";
  EXPECT_EQ(folder.read("d.plist/inside"), "kept");
}

TEST_F(PreferenceFiles, ALinkIsWrittenThrough) {
  folder.write("target", "<plist><dict><key>old</key><integer>5</integer></dict></plist>");
  fs::create_symlink("target", folder.path("d.plist"));
  ASSERT_TRUE(storeOne());
  EXPECT_TRUE(fs::is_symlink(folder.path("d.plist")));
  EXPECT_NE(folder.read("target").find("<key>old</key>"), std::string::npos);
  EXPECT_NE(folder.read("target").find("<key>key</key>"), std::string::npos);
}

TEST_F(PreferenceFiles, ADanglingLinkReadsAsEmptyAndItsPlaceIsTakenByAWrite) {
  fs::create_symlink("nowhere", folder.path("d.plist"));
  EXPECT_EQ(preferences.value("d", "key"), std::nullopt);
  EXPECT_TRUE(storeOne());
  LinuxPreferences again(folder.path());
  EXPECT_EQ(again.value("d", "key"), PropertyList(1));
}

TEST_F(PreferenceFiles, APipeInPlaceOfTheFileIsNeverWaitedFor) {
  ASSERT_EQ(::mkfifo(folder.path("d.plist").c_str(), 0600), 0);
  EXPECT_EQ(preferences.value("d", "key"), std::nullopt);
  EXPECT_FALSE(storeOne());
}

TEST_F(PreferenceFiles, ADomainThatCannotNameAFileHoldsNothing) {
  for (const char* name : {"", ".", "..", "a/b", "../d"}) {
    preferences.setValue(name, "key", 1);
    EXPECT_FALSE(preferences.synchronize(name)) << name;
  }
  EXPECT_TRUE(names().empty());
}

TEST_F(PreferenceFiles, WhatIsPendingIsWrittenAtTheEnd) {
  LinuxPreferences(folder.path()).setValue("d", "key", 1);
  EXPECT_EQ(preferences.value("d", "key"), PropertyList(1));
}

TEST_F(PreferenceFiles, UnknownKeysOfAnyKindAreKept) {
  folder.write("d.plist", "<plist><dict><key>foreign</key><array><dict><key>x</key><true/></dict>"
                          "</array></dict></plist>");
  ASSERT_TRUE(storeOne());
  LinuxPreferences again(folder.path());
  EXPECT_EQ(again.value("d", "foreign"),
            PropertyList(PropertyList::Array{PropertyList::Dictionary{{"x", true}}}));
}

TEST_F(PreferenceFiles, AFileThatIsAsItWasIsNotDecodedAgain) {
  const std::string listed = "<plist><dict><key>k</key><array><true/></array></dict></plist>";
  folder.write("d.plist", listed);
  const PropertyList before = *preferences.value("d", "k");
  folder.write("d.plist", listed);
  EXPECT_TRUE(preferences.synchronize("d"));
  EXPECT_TRUE(preferences.value("d", "k")->isSameObject(before));
}

TEST_F(PreferenceFiles, AFileThatWasAwayOrMalformedMeanwhileIsReadAsItIs) {
  const std::string listed = "<plist><dict><key>k</key><integer>1</integer></dict></plist>";
  folder.write("d.plist", listed);
  EXPECT_EQ(preferences.value("d", "k"), PropertyList(1));
  fs::remove(folder.path("d.plist"));
  preferences.synchronize("d");
  EXPECT_EQ(preferences.value("d", "k"), std::nullopt);
  folder.write("d.plist", "");
  preferences.synchronize("d");
  folder.write("d.plist", listed);
  preferences.synchronize("d");
  EXPECT_EQ(preferences.value("d", "k"), PropertyList(1));
}

} // namespace
} // namespace tavrel
