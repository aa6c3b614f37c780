#include "contract/FilesContract.h"

#import "platform/macos/Conversions.h"
#include "platform/macos/MacFiles.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace tavrel {
namespace {

namespace fs = std::filesystem;

/// A folder in the home folder: the temporary one lies behind links.
class MacFilesWorld {
public:
  MacFilesWorld() { ::mkdtemp(root_.data()); }
  ~MacFilesWorld() {
    std::error_code ignored;
    fs::remove_all(root_, ignored);
  }
  MacFilesWorld(const MacFilesWorld&) = delete;
  MacFilesWorld& operator=(const MacFilesWorld&) = delete;

  Files& files() { return files_; }
  std::string root() const { return root_; }
  std::string home() { return stringOf(NSHomeDirectory()); }

  void addFile(const std::string& path) {
    fs::create_directories(fs::path(path).parent_path());
    std::ofstream(path) << "text";
  }
  void addFolder(const std::string& path) { fs::create_directories(path); }
  void addPackage(const std::string& path) { addFolder(path); }
  void addApplication(const std::string& path) { addFolder(path + "/Contents/MacOS"); }
  void addScript(const std::string& path) {
    addFile(path);
    [NSFileManager.defaultManager setAttributes:@{
      NSFileHFSTypeCode : @(scriptTypeCode)
    }
                                   ofItemAtPath:nsString(path)
                                          error:nil];
  }
  void addSymlink(const std::string& path, const std::string& target) {
    fs::create_symlink(target, path);
  }
  /// The system makes aliases only of what is there.
  void addAlias(const std::string& path, const std::string& target) {
    const bool isThere = fs::exists(fs::symlink_status(target));
    if (!isThere)
      addFile(target);
    NSData* const data =
        [fileUrl(target) bookmarkDataWithOptions:NSURLBookmarkCreationSuitableForBookmarkFile
                  includingResourceValuesForKeys:nil
                                   relativeToURL:nil
                                           error:nil];
    if (!isThere)
      fs::remove(target);
    EXPECT_TRUE(data && [NSURL writeBookmarkData:data toURL:fileUrl(path) options:0 error:nil]);
  }
  void remove(const std::string& path) { fs::remove_all(path); }
  void move(const std::string& from, const std::string& to) { fs::rename(from, to); }

private:
  std::string root_ = home() + "/tavrel-test-XXXXXX";
  MacFiles files_;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Macos, FilesContract, MacFilesWorld);

TEST(MacFiles, PathsThatTheSystemWouldRaiseAtAreOfNoFile) {
  MacFiles files;
  for (const std::string& path :
       {std::string(), std::string("relative"), std::string("/a\0b", 4)}) {
    EXPECT_FALSE(files.exists(path));
    EXPECT_FALSE(files.information(path, FinalLink::keep));
    EXPECT_FALSE(files.resolveAlias(path));
    EXPECT_FALSE(files.bookmark(path));
    EXPECT_TRUE(files.browse(path, FinalLink::follow).empty());
  }
}

} // namespace
} // namespace tavrel
