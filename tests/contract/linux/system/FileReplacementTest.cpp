#include "platform/linux/system/FileReplacement.h"

#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <sys/xattr.h>

namespace tavrel {
namespace {

namespace fs = std::filesystem;

class FileReplacement : public ::testing::Test {
protected:
  [[nodiscard]] std::string replace(const std::string& name, const std::string& text) const {
    return replaceFile(folder.path(name), Bytes(text.begin(), text.end()));
  }
  [[nodiscard]] mode_t modeOf(const std::string& name) const {
    struct stat status = {};
    EXPECT_EQ(::stat(folder.path(name).c_str(), &status), 0);
    return status.st_mode & 07777;
  }
  [[nodiscard]] std::ptrdiff_t namesInFolder() const {
    return std::distance(fs::directory_iterator(folder.path()), {});
  }

  TemporaryFolder folder;
};

TEST_F(FileReplacement, ANewFileIsPrivateAndItsFoldersAreMade) {
  EXPECT_EQ(replace("a/b/new", "text"), "");
  EXPECT_EQ(folder.read("a/b/new"), "text");
  EXPECT_EQ(modeOf("a/b/new"), 0600U);
  EXPECT_EQ(modeOf("a"), 0700U);
}

TEST_F(FileReplacement, AnotherFileTakesTheNameAndKeepsTheMode) {
  const std::string path = folder.write("file", "old");
  fs::permissions(path, fs::perms(0640));
  const fs::path secondName = folder.path("second name");
  fs::create_hard_link(path, secondName);
  EXPECT_EQ(replace("file", "new"), "");
  EXPECT_EQ(folder.read("file"), "new");
  EXPECT_EQ(folder.read("second name"), "old") << "the old file was written over";
  EXPECT_EQ(modeOf("file"), 0640U);
  EXPECT_EQ(namesInFolder(), 2) << "a temporary file is left";
}

TEST_F(FileReplacement, ExtendedAttributesStay) {
  const std::string path = folder.write("file", "old");
  if (::setxattr(path.c_str(), "user.note", "mine", 4, 0) != 0)
    GTEST_SKIP() << "this file system keeps no extended attributes";
  EXPECT_EQ(replace("file", "new"), "");
  std::string value(8, '\0');
  EXPECT_EQ(::getxattr(path.c_str(), "user.note", value.data(), value.size()), 4);
}

TEST_F(FileReplacement, ALinkStaysAndTheFileThatItLeadsToIsReplaced) {
  folder.write("target", "old");
  fs::create_symlink("target", folder.path("link"));
  EXPECT_EQ(replace("link", "new"), "");
  EXPECT_EQ(fs::read_symlink(folder.path("link")), "target");
  EXPECT_EQ(folder.read("target"), "new");
}

TEST_F(FileReplacement, APipeIsLeftAlone) {
  ASSERT_EQ(::mkfifo(folder.path("pipe").c_str(), 0600), 0);
  EXPECT_EQ(replace("pipe", "new"), "is no file");
  EXPECT_TRUE(fs::is_fifo(folder.path("pipe")));
  EXPECT_EQ(namesInFolder(), 1) << "a temporary file is left";
}

TEST_F(FileReplacement, AFileInThePlaceOfAFolderIsAReason) {
  folder.write("file", "old");
  EXPECT_EQ(replace("file/below", "new"), "Not a directory");
  EXPECT_EQ(folder.read("file"), "old");
}

} // namespace
} // namespace tavrel
