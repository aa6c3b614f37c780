#include "contract/linux/transfers/FileTransferFixture.h"

#include "platform/linux/transfers/DirectoryTree.h"
#include "platform/linux/transfers/TreeCopy.h"

#include <fcntl.h>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/sysmacros.h>
#include <sys/un.h>
#include <sys/xattr.h>
#include <thread>

namespace tavrel {
namespace {

using ::testing::IsEmpty;

/// Room for ever more, until the whole fits.
class FileTransferToAFullDisk : public FileTransfer {
protected:
  void SetUp() override {
    fillWithEverything(from);
    if (!SmallDisk(to, "size=64k").isMounted())
      GTEST_SKIP() << "file systems cannot be mounted here";
  }

  void sweep(FileOperation operation, const std::function<std::string(int)>& options) {
    const auto original = listing(from, Compare::contents);
    for (int room = 1;; ++room) {
      ASSERT_LT(room, 200);
      const SmallDisk disk(to, options(room));
      ASSERT_TRUE(disk.isMounted()) << options(room);
      const auto before = listing(from);
      if (transfer(operation, {"tree", "second"}).empty()) {
        EXPECT_GT(room, 2);
        EXPECT_EQ(listing(to, Compare::contents), original);
        return;
      }
      ASSERT_EQ(listing(from), before);
      ASSERT_THAT(listing(to), IsEmpty());
    }
  }
};

std::string withBlocks(int room) {
  return "nr_blocks=" + std::to_string(room);
}
std::string withInodes(int room) {
  return "size=1m,nr_inodes=" + std::to_string(room + 1);
}

TEST_F(FileTransferToAFullDisk, ACopyLeavesNothingWhereverTheDiskIsFull) {
  sweep(copy, withBlocks);
}
TEST_F(FileTransferToAFullDisk, AMoveLeavesEverythingWhereverTheDiskIsFull) {
  sweep(move, withBlocks);
}
TEST_F(FileTransferToAFullDisk, ACopyLeavesNothingWhicheverFileIsOneTooMany) {
  sweep(copy, withInodes);
}
TEST_F(FileTransferToAFullDisk, AMoveLeavesEverythingWhicheverFileIsOneTooMany) {
  sweep(move, withInodes);
}

/// Somebody else makes a file of the name at about the same time: both files live.
void expectBothSurvive(const fs::path& from, const fs::path& to) {
  int lost = 0;
  for (int round = 0; round < 200; ++round) {
    write(from / "name", "ours");
    bool made = false;
    std::thread other([&] {
      const FileDescriptor file(::open((to / "name").c_str(), O_WRONLY | O_CREAT | O_EXCL, 0600));
      made = file.isOpen() && ::write(file.get(), "theirs", 6) == 6;
    });
    const bool moved = !transferFiles(move, from.string(), to.string(), {"name"});
    other.join();
    EXPECT_NE(moved, made);
    EXPECT_EQ(read(to / "name"), made ? "theirs" : "ours");
    EXPECT_EQ(fs::exists(from / "name"), made);
    lost += made ? 1 : 0;
    fs::remove(to / "name");
  }
  ::testing::Test::RecordProperty("times_somebody_else_came_first", lost);
}

TEST_F(FileTransfer, AFileThatAppearsMeanwhileIsNotOverwritten) {
  expectBothSurvive(from, to);
}
TEST_F(FileTransferBetweenDisks, AFileThatAppearsMeanwhileIsNotOverwritten) {
  expectBothSurvive(from, to);
}

constexpr int depth = 2000;
const std::string longName(100, 'd');

/// A chain of folders whose path is far longer than any system call takes.
void makeDeepTree(const fs::path& folder) {
  FileDescriptor current(::open(folder.c_str(), O_RDONLY | O_DIRECTORY));
  for (int level = 0; level < depth; ++level) {
    ASSERT_EQ(::mkdirat(current.get(), longName.c_str(), 0755), 0);
    current = FileDescriptor(::openat(current.get(), longName.c_str(), O_RDONLY | O_DIRECTORY));
  }
  const FileDescriptor file(::openat(current.get(), "bottom", O_WRONLY | O_CREAT, 0600));
  EXPECT_EQ(::write(file.get(), "text", 4), 4);
}

int depthOf(const fs::path& folder) {
  FileDescriptor current(::open(folder.c_str(), O_RDONLY | O_DIRECTORY));
  int level = 0;
  for (; current.isOpen() && ::faccessat(current.get(), "bottom", R_OK, 0) != 0; ++level)
    current = FileDescriptor(::openat(current.get(), longName.c_str(), O_RDONLY | O_DIRECTORY));
  return level;
}

void removeDeepTree(const fs::path& folder) {
  const FileDescriptor top(::open(folder.c_str(), O_RDONLY | O_DIRECTORY));
  EXPECT_FALSE(removeTree(top.get(), longName));
}

TEST_F(FileTransfer, AVeryDeepTreeIsCopied) {
  makeDeepTree(from);
  EXPECT_EQ(transfer(copy, {longName}), "");
  EXPECT_EQ(depthOf(from), depth);
  EXPECT_EQ(depthOf(to), depth);
  removeDeepTree(from);
  removeDeepTree(to);
}

TEST_F(FileTransfer, AVeryDeepTreeIsMovedBetweenDisks) {
  const SmallDisk disk(to, "size=20m");
  if (!disk.isMounted())
    GTEST_SKIP() << "file systems cannot be mounted here";
  makeDeepTree(from);
  EXPECT_EQ(transfer(move, {longName}), "");
  EXPECT_THAT(listing(from), IsEmpty());
  EXPECT_EQ(depthOf(to), depth);
  removeDeepTree(to);
}

/// What was copied, compared with what is there now.
class TreeCopyTest : public FileTransfer {
protected:
  TreeCopyTest() {
    fillWithEverything(from);
    fs::create_directories(scratch.path() / "links");
    EXPECT_FALSE(tree.copy(source.get(), "tree"));
  }

  [[nodiscard]] bool isUnchanged() const { return !tree.confirmUnchanged(source.get(), "tree"); }

  FileDescriptor open(const fs::path& path) const {
    fs::create_directories(path);
    return FileDescriptor(::open(path.c_str(), O_RDONLY | O_DIRECTORY));
  }
  FileDescriptor source = open(from);
  FileDescriptor destination = open(to);
  FileDescriptor links = open(scratch.path() / "links");
  TreeCopy tree{destination.get(), links.get()};
};

TEST_F(TreeCopyTest, SeesThatNothingChanged) {
  EXPECT_TRUE(isUnchanged());
}

TEST_F(TreeCopyTest, SeesAFileThatCameLater) {
  write(from / "tree/deep/late", "");
  EXPECT_FALSE(isUnchanged());
}

TEST_F(TreeCopyTest, SeesAFolderThatCameLater) {
  fs::create_directory(from / "tree/deep/late");
  EXPECT_FALSE(isUnchanged());
}

TEST_F(TreeCopyTest, SeesAFileThatWasWrittenToLater) {
  write(from / "tree/text", "TEXT");
  EXPECT_FALSE(isUnchanged());
}

} // namespace
} // namespace tavrel
