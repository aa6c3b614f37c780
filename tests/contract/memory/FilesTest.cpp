#include "contract/FilesContract.h"

#include "platform/memory/MemoryFiles.h"

namespace tavrel {
namespace {

class MemoryFilesWorld {
public:
  MemoryFilesWorld() { control().addFolder(root()); }
  Files& files() { return files_; }
  MemoryFiles::Control& control() { return files_.control; }
  std::string root() const { return "/Users/me/test"; }
  std::string home() { return control().home; }

  void addFile(const std::string& path) { control().addFile(path); }
  void addFolder(const std::string& path) { control().addFolder(path); }
  void addPackage(const std::string& path) { control().addPackage(path); }
  void addApplication(const std::string& path) { control().addApplication(path); }
  void addScript(const std::string& path) { control().addScript(path); }
  void addSymlink(const std::string& path, const std::string& target) {
    control().addSymlink(path, target);
  }
  void addAlias(const std::string& path, const std::string& target) {
    control().addAlias(path, target);
  }
  void remove(const std::string& path) { control().remove(path); }
  void move(const std::string& from, const std::string& to) { control().move(from, to); }

private:
  MemoryFiles files_;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Memory, FilesContract, MemoryFilesWorld);

class MemoryFilesControl : public ::testing::Test {
protected:
  std::uint32_t flags(const std::string& path) {
    return files_.information(path, FinalLink::keep).value_or(ItemInformation{}).flags;
  }
  MemoryFiles files_;
  MemoryFiles::Control& control_ = files_.control;
};

TEST_F(MemoryFilesControl, SetsFlagsTypeCodesAndNamesOfItsOwn) {
  control_.addFile("/a/old");
  control_.at("/a/old").flags = itemFlag::classicApplication;
  control_.at("/a/old").typeCode = 0x4150504C;
  control_.at("/a/old").displayName = "Old";
  EXPECT_EQ(flags("/a/old"), itemFlag::classicApplication);
  EXPECT_EQ(files_.information("/a/old", FinalLink::follow)->typeCode, 0x4150504CU);
  EXPECT_EQ(files_.displayName("/a/old"), "Old");
}

TEST_F(MemoryFilesControl, HidesAFileOrALink) {
  control_.addFile("/a/file");
  control_.addSymlink("/a/link", "file");
  control_.at("/a/link").invisible = true;
  EXPECT_EQ(flags("/a/link"), itemFlag::symlink | itemFlag::invisible);
  EXPECT_EQ(flags("/a/file"), itemFlag::plainFile);
}

TEST_F(MemoryFilesControl, MakesQueriesFail) {
  control_.addFile("/a/file");
  control_.at("/a/file").informationFails = true;
  control_.at("/a").listingFails = true;
  EXPECT_FALSE(files_.information("/a/file", FinalLink::follow));
  EXPECT_TRUE(files_.list("/a").empty());
  EXPECT_TRUE(files_.exists("/a/file"));
}

TEST_F(MemoryFilesControl, LetsABookmarkLeadToAnyUrl) {
  control_.bookmarkUrls[{1, 2}] = "http://example.com";
  EXPECT_EQ(files_.resolveBookmark({1, 2}, BookmarkResolution::withoutMounting),
            "http://example.com");
  EXPECT_THAT(control_.bookmarksResolved,
              ::testing::ElementsAre(BookmarkResolution::withoutMounting));
}

TEST_F(MemoryFilesControl, LogsWhatWasAsked) {
  (void)files_.information("/a", FinalLink::keep);
  (void)files_.list("/b");
  EXPECT_THAT(control_.informationAsked,
              ::testing::ElementsAre(::testing::Pair("/a", FinalLink::keep)));
  EXPECT_THAT(control_.listed, ::testing::ElementsAre("/b"));
}

} // namespace
} // namespace tavrel
