#include "platform/linux/files/FolderListings.h"

#include "platform/linux/files/LinuxFiles.h"
#include "support/DeadFileSystem.h"
#include "support/DyingFileSystem.h"
#include "support/ScratchFolders.h"
#include "support/WaitFor.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

namespace tavrel {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr std::chrono::milliseconds timeout{200};

class FolderListingsTest : public ::testing::Test {
protected:
  std::string at(const std::string& name) { return (scratch_.path() / name).string(); }

  std::string add(const std::string& name) {
    write(at(name), "text");
    return at(name);
  }

  std::string addFolder(const std::string& name) {
    fs::create_directory(at(name));
    return at(name);
  }

  // "name kind" in the order of the names.
  std::vector<std::string> browsed(const std::string& folder) {
    std::vector<std::string> rows;
    for (const ListedFile& file : listings.browse(folder))
      rows.push_back(file.displayName + ' ' + std::to_string(static_cast<int>(file.kind)));
    std::ranges::sort(rows);
    return rows;
  }

  FolderListings listings{timeout};
  ScratchFolder scratch_;
};

TEST_F(FolderListingsTest, NamesOfAnyBytesAndOfTheLongestAreListedAsTheyAre) {
  const std::vector<std::string> names{
      "\xFF\xFE", "line\nfeed", "\u202Edet", std::string(255, 'x'), "back\\slash", " "};
  for (const std::string& name : names)
    add(name);
  std::vector<std::string> found;
  for (const ListedFile& file : listings.browse(scratch_.path().string()))
    found.push_back(file.name);
  EXPECT_THAT(found, ::testing::UnorderedElementsAreArray(names));
}

TEST_F(FolderListingsTest, PipesAndSocketsAreListedAndNeverOpened) {
  ASSERT_EQ(::mkfifo(at("pipe").c_str(), 0600), 0);
  ASSERT_EQ(::mkfifo(at("pipe.desktop").c_str(), 0600), 0);
  EXPECT_THAT(browsed(scratch_.path().string()), ElementsAre("pipe 1", "pipe.desktop 1"));
}

// Nothing is closed to the administrator, who asks as another person.
TEST_F(FolderListingsTest, AFolderThatMayNotBeReadIsEmptyAndOneThatMayNotBeSearchedHasItsNames) {
  constexpr uid_t nobody = 65534;
  add("file");
  addFolder("folder");
  const bool administrator = ::geteuid() == 0;
  if (administrator) {
    ASSERT_EQ(::chown(scratch_.path().c_str(), nobody, nobody), 0);
    ASSERT_EQ(::seteuid(nobody), 0);
  }
  fs::permissions(scratch_.path(), fs::perms::owner_exec);
  EXPECT_THAT(browsed(scratch_.path().string()), IsEmpty());
  fs::permissions(scratch_.path(), fs::perms::owner_read);
  EXPECT_THAT(browsed(scratch_.path().string()), ElementsAre("file 1", "folder 2"));
  fs::permissions(scratch_.path(), fs::perms::owner_all);
  if (administrator) {
    ASSERT_EQ(::seteuid(0), 0);
  }
}

TEST_F(FolderListingsTest, ALoopOfLinksLeadsNowhere) {
  fs::create_symlink("two", at("one"));
  fs::create_symlink("one", at("two"));
  fs::create_directory_symlink(".", at("here"));
  EXPECT_THAT(browsed(scratch_.path().string()), ElementsAre("here 2", "one 0", "two 0"));
}

std::ptrdiff_t threadsOfThisProcess() {
  return std::distance(fs::directory_iterator("/proc/self/task"), fs::directory_iterator());
}

class DeadFileSystemTest : public FolderListingsTest {
protected:
  static void SetUpTestSuite() { threadsAtFirst = threadsOfThisProcess(); }

  void SetUp() override {
    if (!dead.isMounted())
      GTEST_SKIP() << "no rights to mount a file system here";
  }

  static inline std::ptrdiff_t threadsAtFirst = 0;
  std::string folder = addFolder("dead");
  DeadFileSystem dead{folder};
};

TEST_F(DeadFileSystemTest, CostsOneBoundedWaitAndIsEmptyAndSaysSo) {
  const auto start = std::chrono::steady_clock::now();
  ::testing::internal::CaptureStderr();
  EXPECT_THAT(browsed(folder), IsEmpty());
  EXPECT_THAT(::testing::internal::GetCapturedStderr(),
              ::testing::AllOf(HasSubstr(folder), HasSubstr("does not answer")));
  EXPECT_GE(std::chrono::steady_clock::now() - start, timeout);
}

TEST_F(DeadFileSystemTest, IsNotWaitedForAgainWhileItIsStuck) {
  constexpr std::chrono::seconds longer{2};
  FolderListings patient{longer};
  EXPECT_THAT(patient.browse(folder), IsEmpty());
  const auto start = std::chrono::steady_clock::now();
  ::testing::internal::CaptureStderr();
  EXPECT_THAT(patient.browse(folder), IsEmpty());
  EXPECT_THAT(::testing::internal::GetCapturedStderr(), HasSubstr("does not answer"));
  EXPECT_LT(std::chrono::steady_clock::now() - start, longer / 2);
}

TEST_F(DeadFileSystemTest, TheFolderItIsMountedInIsListedWithoutAskingIt) {
  add("file");
  ::testing::internal::CaptureStderr();
  EXPECT_THAT(browsed(scratch_.path().string()), ElementsAre("dead 2", "file 1"));
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
}

TEST_F(DeadFileSystemTest, ALinkIntoItLeadsNowhereAndTheRestOfItsFolderIsThere) {
  add("file");
  fs::create_symlink(folder + "/inside", at("link"));
  ::testing::internal::CaptureStderr();
  EXPECT_THAT(browsed(scratch_.path().string()), ElementsAre("dead 2", "file 1", "link 0"));
  EXPECT_THAT(::testing::internal::GetCapturedStderr(), HasSubstr("\"link\""));
}

TEST_F(DeadFileSystemTest, AnswersAgainOnceItIsGone) {
  (void)browsed(folder);
  ::umount2(folder.c_str(), MNT_DETACH | MNT_FORCE);
  add("dead/alive");
  EXPECT_TRUE(waitFor([&] { return browsed(folder) == std::vector<std::string>{"alive 1"}; }));
}

TEST_F(DeadFileSystemTest, EveryQuestionAboutItIsAnsweredAfterOneWaitAsIfNothingWereThere) {
  LinuxFiles files;
  const std::string path = folder + "/inside";
  const auto start = std::chrono::steady_clock::now();
  ::testing::internal::CaptureStderr();
  for (int i = 0; i < 10; ++i) {
    EXPECT_FALSE(files.exists(path));
    EXPECT_EQ(files.kind(path), FileKind::none);
    EXPECT_FALSE(files.information(path, FinalLink::keep));
    EXPECT_FALSE(files.bookmark(path));
    EXPECT_EQ(files.resolveSymlinks(path), path);
    EXPECT_EQ(files.displayName(path), "inside");
    EXPECT_THAT(files.browse(folder, FinalLink::keep), IsEmpty());
  }
  const std::string said = ::testing::internal::GetCapturedStderr();
  EXPECT_THAT(said, HasSubstr("counts as missing"));
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(3));
}

TEST_F(DeadFileSystemTest, ALinkIntoItIsAnsweredAboutAfterOneWaitAsIfItLedNowhere) {
  fs::create_directory(at("shelf"));
  fs::create_symlink("../dead/inside", at("shelf/link"));
  fs::create_symlink(at("shelf"), at("far"));
  write(at("alias.desktop"), "[Desktop Entry]\nType=Link\nURL=file://" + at("far/link") + "\n");
  LinuxFiles files;
  const auto start = std::chrono::steady_clock::now();
  ::testing::internal::CaptureStderr();
  for (const std::string& path : {at("far/link"), at("far/link/../file"), at("shelf/link/file")}) {
    EXPECT_FALSE(files.exists(path));
    EXPECT_EQ(files.kind(path), FileKind::none);
    EXPECT_FALSE(files.information(path, FinalLink::follow));
    EXPECT_EQ(files.resolveSymlinks(path), path);
    EXPECT_EQ(files.displayName(path), path.substr(path.rfind('/') + 1));
    EXPECT_THAT(files.list(path), IsEmpty());
  }
  EXPECT_FALSE(files.resolveAlias(at("alias.desktop")));
  EXPECT_TRUE(files.information(at("far/link"), FinalLink::keep)) << "the link itself is here";
  EXPECT_TRUE(files.bookmark(at("far/link")));
  EXPECT_THAT(::testing::internal::GetCapturedStderr(), HasSubstr("counts as missing"));
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(3));
}

// The search for the file goes one folder up, and must not leave the test's own: other tests may
// have their dead file systems beside it.
TEST_F(DeadFileSystemTest, ABookmarkOfAFileOnItLeadsNowhereAfterOneWait) {
  (void)addFolder("inner");
  const DeadFileSystem another(addFolder("inner/dead"));
  const std::string text = "tavrel bookmark 1\n1 2 3\n" + at("inner/dead/inside");
  const auto start = std::chrono::steady_clock::now();
  EXPECT_FALSE(LinuxFiles().resolveBookmark(Bytes(text.begin(), text.end()),
                                            BookmarkResolution::withoutMounting));
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(3));
}

TEST_F(DeadFileSystemTest, LinksIntoItTakeNothingFromTheLinksBesideThem) {
  fs::create_directory(at("shelf"));
  for (const char* name : {"a", "z"})
    fs::create_directory_symlink(folder + "/inside", at("shelf/" + std::string(name)));
  fs::create_directory_symlink(scratch_.path(), at("shelf/m"));
  EXPECT_THAT(browsed(at("shelf")), ElementsAre("a 0", "m 2", "z 0"));
}

class DyingFileSystemTest : public FolderListingsTest {
protected:
  void SetUp() override {
    if (!dying.isMounted())
      GTEST_SKIP() << "no rights to mount a file system here";
  }

  std::string folder = addFolder("share");
  DyingFileSystem dying{folder};
  LinuxFiles files;
};

TEST_F(DyingFileSystemTest, WhileItLivesItIsAFolderAsAnyOther) {
  EXPECT_TRUE(files.exists(folder + "/inside"));
  EXPECT_EQ(files.kind(folder + "/inside"), FileKind::directory);
  EXPECT_FALSE(files.exists(folder + "/outside"));
  EXPECT_EQ(files.information(folder + "/inside", FinalLink::keep)->flags, itemFlag::container);
}

TEST_F(DyingFileSystemTest, OneThatDiesRightAfterAnAnswerCostsOneBoundedWait) {
  ASSERT_TRUE(files.exists(folder + "/inside"));
  dying.die();
  const auto start = std::chrono::steady_clock::now();
  ::testing::internal::CaptureStderr();
  EXPECT_FALSE(files.exists(folder + "/inside"));
  EXPECT_EQ(files.kind(folder + "/inside"), FileKind::none);
  EXPECT_FALSE(files.information(folder + "/inside", FinalLink::keep));
  EXPECT_EQ(files.resolveSymlinks(folder + "/inside"), folder + "/inside");
  EXPECT_FALSE(files.bookmark(folder + "/inside"));
  EXPECT_THAT(files.list(folder), IsEmpty());
  EXPECT_THAT(files.browse(folder, FinalLink::keep), IsEmpty());
  EXPECT_THAT(::testing::internal::GetCapturedStderr(), HasSubstr("counts as missing"));
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(3));
}

// The program that ends is a copy of this one: what threads of the tests before hold at that moment
// nobody would ever give back in it.
TEST_F(DeadFileSystemTest, DoesNotKeepTheProgramFromEnding) {
  ASSERT_TRUE(waitFor([] { return threadsOfThisProcess() <= threadsAtFirst; }));
  EXPECT_EXIT(
      {
        (void)browsed(folder);
        std::exit(0);
      },
      ::testing::ExitedWithCode(0), "does not answer");
}

} // namespace
} // namespace tavrel
