#include "platform/linux/preferences/LinuxPreferences.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace tavrel {
namespace {

namespace fs = std::filesystem;

std::vector<fs::path> brokenFiles() {
  std::vector<fs::path> files{fs::directory_iterator(fs::path(TAVREL_FIXTURES) / "broken-plists"),
                              {}};
  std::sort(files.begin(), files.end());
  return files;
}

std::string nameOf(const ::testing::TestParamInfo<fs::path>& fixture) {
  std::string name = fixture.param.stem();
  std::replace(name.begin(), name.end(), '-', '_');
  return name;
}

/// A preference file that is cut, hostile or not quite right.
class BrokenPreferences : public ::testing::TestWithParam<fs::path> {
protected:
  BrokenPreferences() {
    fs::copy_file(GetParam(), folder.path("d.plist"));
    original = folder.read("d.plist");
  }

  [[nodiscard]] PropertyListFileState state() const {
    return readPropertyListFile(folder.path("d.plist")).state;
  }

  TemporaryFolder folder;
  std::string original;
};

TEST_P(BrokenPreferences, IsReadWithoutHarmAndEitherUnderstoodOrExplained) {
  const PropertyListFile file = readPropertyListFile(folder.path("d.plist"));
  EXPECT_EQ(file.state == PropertyListFileState::readable, file.problem.empty());
  EXPECT_NE(file.state, PropertyListFileState::missing);
  LinuxPreferences preferences(folder.path());
  EXPECT_EQ(preferences.value("d", "no such key"), std::nullopt);
  EXPECT_TRUE(preferences.synchronize("d"));
  EXPECT_EQ(folder.read("d.plist"), original);
}

TEST_P(BrokenPreferences, IsNeverOverwritten) {
  const bool malformed = state() == PropertyListFileState::malformed;
  LinuxPreferences preferences(folder.path());
  preferences.setValue("d", "mine", 1);
  ASSERT_TRUE(preferences.synchronize("d"));
  EXPECT_EQ(folder.read("d.plist.malformed-1"), malformed ? original : "");
  EXPECT_EQ(state(), PropertyListFileState::readable);
  EXPECT_EQ(LinuxPreferences(folder.path()).value("d", "mine"), PropertyList(1));
}

INSTANTIATE_TEST_SUITE_P(Fixtures, BrokenPreferences, ::testing::ValuesIn(brokenFiles()), nameOf);

TEST(BrokenPreferencesFolder, HoldsFilesThatAreMalformed) {
  int malformed = 0;
  for (const fs::path& path : brokenFiles())
    malformed += readPropertyListFile(path).state == PropertyListFileState::malformed ? 1 : 0;
  EXPECT_GE(malformed, 75);
}

} // namespace
} // namespace tavrel
