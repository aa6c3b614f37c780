#include "contract/ImagesContract.h"

#include "platform/memory/MemoryFiles.h"
#include "platform/memory/MemoryImages.h"

namespace tavrel {
namespace {

using ::testing::ElementsAre;

class MemoryImagesWorld {
public:
  MemoryImagesWorld() { images_.control.junk = {junkData()}; }
  Images& images() { return images_; }
  void addResource(const std::string& name, Size size) { images_.control.resources[name] = size; }
  Bytes pictureData() const { return {1, 2, 3}; }
  Bytes junkData() const { return {0}; }
  std::string addFile() {
    files_.control.addFile("/a/file");
    return "/a/file";
  }
  std::string addFolder() {
    files_.control.addFolder("/a/folder");
    return "/a/folder";
  }
  std::string brokenLink() {
    files_.control.addSymlink("/a/broken", "nowhere");
    return "/a/broken";
  }

private:
  MemoryFiles files_;
  MemoryImages images_{files_};
};

INSTANTIATE_TYPED_TEST_SUITE_P(Memory, ImagesContract, MemoryImagesWorld);

class MemoryImagesControl : public ::testing::Test {
protected:
  MemoryFiles files_;
  MemoryImages images_{files_};
};

TEST_F(MemoryImagesControl, PicturesCanBeToldByName) {
  files_.control.addFile("/a/b");
  images_.control.resources["badge"] = {8, 8};
  const Image icon = withBadge(*images_.iconForFile("/a/b"), *images_.named("badge"));
  EXPECT_THAT(pictureNames(icon), ElementsAre("icon of /a/b", "resource badge"));
  EXPECT_THAT(pictureNames(*images_.fromData(Bytes(12))), ElementsAre("data 12 bytes"));
}

TEST_F(MemoryImagesControl, AFileMayHaveNoIcon) {
  files_.control.addFile("/a/b");
  images_.control.withoutIcon.insert("/a/b");
  EXPECT_FALSE(images_.iconForFile("/a/b"));
}

TEST_F(MemoryImagesControl, LogsWhatWasAsked) {
  (void)images_.named("badge");
  (void)images_.iconForFile("/none");
  EXPECT_THAT(images_.control.named, ElementsAre("badge"));
  EXPECT_THAT(images_.control.iconsAsked, ElementsAre("/none"));
}

} // namespace
} // namespace tavrel
