#include "contract/ImagesContract.h"

#import "platform/macos/Conversions.h"
#include "platform/macos/MacImages.h"
#include "support/TemporaryFolder.h"

#import <AppKit/AppKit.h>

namespace tavrel {
namespace {

Bytes pictureOf(Size size) {
  NSBitmapImageRep* const picture =
      [[NSBitmapImageRep alloc] initWithBitmapDataPlanes:nil
                                              pixelsWide:static_cast<NSInteger>(size.width)
                                              pixelsHigh:static_cast<NSInteger>(size.height)
                                           bitsPerSample:8
                                         samplesPerPixel:4
                                                hasAlpha:YES
                                                isPlanar:NO
                                          colorSpaceName:NSDeviceRGBColorSpace
                                             bytesPerRow:0
                                            bitsPerPixel:0];
  return bytesOf([picture representationUsingType:NSBitmapImageFileTypePNG properties:@{}]);
}

class MacImagesWorld {
public:
  Images& images() { return images_; }
  void addResource(const std::string& name, Size size) {
    const Bytes picture = pictureOf(size);
    folder_.write(name + ".png", {picture.begin(), picture.end()});
  }
  Bytes pictureData() { return pictureOf({32, 32}); }
  Bytes junkData() { return {0x89, 'P', 'N', 'G', 0, 1, 2}; }
  std::string addFile() { return folder_.write("file", "text"); }
  std::string addFolder() {
    std::filesystem::create_directories(folder_.path("folder"));
    return folder_.path("folder");
  }
  std::string brokenLink() {
    std::filesystem::create_symlink("nowhere", folder_.path("link"));
    return folder_.path("link");
  }

private:
  TemporaryFolder folder_;
  MacImages images_{folder_.path()};
};

INSTANTIATE_TYPED_TEST_SUITE_P(Macos, ImagesContract, MacImagesWorld);

TEST(MacImages, ADrawingIsAPicture) {
  const TemporaryFolder folder;
  folder.write("drawing.svg", R"(<svg xmlns="http://www.w3.org/2000/svg" width="10" height="8"/>)");
  const auto image = MacImages(folder.path()).named("drawing");
  ASSERT_TRUE(image);
  EXPECT_EQ(image->size, (Size{10, 8}));
}

} // namespace
} // namespace tavrel
