#include "platform/linux/transfers/ExclusiveRename.h"

#include "platform/linux/system/FileDescriptor.h"
#include "support/ScratchFolders.h"

#include <fcntl.h>
#include <gtest/gtest.h>

namespace tavrel {
namespace {

namespace fs = std::filesystem;

using Rename = std::error_code (*)(NameInFolder, NameInFolder);

/// Both ways must behave alike.
class ExclusiveRename : public ::testing::TestWithParam<Rename> {
protected:
  std::error_code rename(const std::string& from, const std::string& to) {
    return GetParam()({folder.get(), from}, {folder.get(), to});
  }

  ScratchFolder scratch;
  FileDescriptor folder{::open(scratch.path().c_str(), O_RDONLY | O_DIRECTORY)};
};

TEST_P(ExclusiveRename, GivesAFileAnotherName) {
  write(scratch.path() / "old", "text");
  EXPECT_FALSE(rename("old", "new"));
  EXPECT_EQ(read(scratch.path() / "new"), "text");
  EXPECT_FALSE(fs::exists(scratch.path() / "old"));
}

TEST_P(ExclusiveRename, GivesAFolderAnotherName) {
  fs::create_directory(scratch.path() / "old");
  write(scratch.path() / "old/inside", "text");
  EXPECT_FALSE(rename("old", "new"));
  EXPECT_EQ(read(scratch.path() / "new/inside"), "text");
  EXPECT_FALSE(fs::exists(scratch.path() / "old"));
}

TEST_P(ExclusiveRename, GivesALinkAnotherName) {
  fs::create_symlink("nowhere", scratch.path() / "old");
  EXPECT_FALSE(rename("old", "new"));
  EXPECT_EQ(fs::read_symlink(scratch.path() / "new"), "nowhere");
}

TEST_P(ExclusiveRename, NeverReplacesAFile) {
  write(scratch.path() / "old", "1");
  write(scratch.path() / "new", "2");
  EXPECT_EQ(rename("old", "new"), std::errc::file_exists);
  EXPECT_EQ(read(scratch.path() / "old"), "1");
  EXPECT_EQ(read(scratch.path() / "new"), "2");
}

TEST_P(ExclusiveRename, NeverReplacesAnEmptyFolder) {
  fs::create_directory(scratch.path() / "old");
  fs::create_directory(scratch.path() / "new");
  EXPECT_EQ(rename("old", "new"), std::errc::file_exists);
  EXPECT_TRUE(fs::exists(scratch.path() / "old"));
}

TEST_P(ExclusiveRename, LeavesOneNameOfAHardLinkAlone) {
  write(scratch.path() / "old", "text");
  fs::create_hard_link(scratch.path() / "old", scratch.path() / "new");
  EXPECT_EQ(rename("old", "new"), std::errc::file_exists);
  EXPECT_TRUE(fs::exists(scratch.path() / "old"));
}

TEST_P(ExclusiveRename, DoesNotMoveAFolderIntoItself) {
  fs::create_directories(scratch.path() / "old");
  EXPECT_TRUE(rename("old", "old/new"));
  EXPECT_TRUE(fs::is_empty(scratch.path() / "old"));
}

INSTANTIATE_TEST_SUITE_P(Ways, ExclusiveRename,
                         ::testing::Values(&renameExclusively, &renameWithoutKernelHelp,
                                           &renameOntoPlaceholder));

} // namespace
} // namespace tavrel
