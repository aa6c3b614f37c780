#include "contract/linux/images/LinuxImagesFixture.h"

#include <sys/stat.h>

namespace tavrel {
namespace {

INSTANTIATE_TYPED_TEST_SUITE_P(Linux, ImagesContract, LinuxWorld);

TEST_F(LinuxImagesTest, AnImageIsDrawnInDevicePixels) {
  world.addResource("icon", {16, 16});
  const Image icon = *images().named("icon");
  EXPECT_EQ(renderImage(icon, 1).size(), QSize(16, 16));
  EXPECT_EQ(renderImage(icon, 2).size(), QSize(32, 32));
  EXPECT_EQ(renderImage(icon, 2).devicePixelRatio(), 2);
  EXPECT_EQ(renderImage(icon, 1.25).size(), QSize(20, 20));
  EXPECT_EQ(pixel(icon, 2, 31, 31), red);
}

TEST_F(LinuxImagesTest, ABadgeIsDrawnOverTheBottomLeft) {
  world.addDrawing("icon", "red", {16, 16});
  world.addDrawing("badge", "blue", {8, 8});
  const Image both = withBadge(*images().named("icon"), *images().named("badge"));
  for (const int scale : {1, 2}) {
    EXPECT_EQ(pixel(both, scale, 1, 16 * scale - 2), blue);
    EXPECT_EQ(pixel(both, scale, 1, 1), red);
    EXPECT_EQ(pixel(both, scale, 16 * scale - 2, 16 * scale - 2), red);
    EXPECT_EQ(pixel(both, scale, 7 * scale, 9 * scale), blue);
    EXPECT_EQ(pixel(both, scale, 7 * scale, 7 * scale), red);
  }
}

TEST_F(LinuxImagesTest, WhatLiesOutsideTheImageIsCutOff) {
  world.addDrawing("small", "red", {8, 8});
  world.addDrawing("large", "blue", {32, 32});
  const Image both = withBadge(*images().named("small"), *images().named("large"));
  EXPECT_EQ(renderImage(both, 1).size(), QSize(8, 8));
  EXPECT_EQ(pixel(both, 1, 0, 0), blue);
}

TEST_F(LinuxImagesTest, AResizedPictureFillsItsNewSize) {
  world.addResource("icon", {64, 64});
  const Image icon = resized(*images().named("icon"), menuIconSize);
  EXPECT_EQ(renderImage(icon, 1).size(), QSize(16, 16));
  EXPECT_EQ(pixel(icon, 1, 15, 15), red);
}

TEST_F(LinuxImagesTest, AnImageWithoutSizeOrScaleIsNull) {
  EXPECT_TRUE(renderImage({}, 1).isNull());
  world.addResource("icon", {16, 16});
  EXPECT_TRUE(renderImage(*images().named("icon"), 0).isNull());
  EXPECT_TRUE(renderImage(resized(*images().named("icon"), {-1, 4}), 1).isNull());
}

TEST_F(LinuxImagesTest, AHugeSizeIsDrawnOnlyAsFarAsSensible) {
  world.addResource("icon", {16, 16});
  const QPixmap pixmap = renderImage(resized(*images().named("icon"), {1e9, 0.001}), 2);
  EXPECT_EQ(pixmap.size(), QSize(4096, 1));
}

class OtherContent : public ImageContent {};

TEST_F(LinuxImagesTest, PicturesOfAnotherDesktopAreLeftOut) {
  const Image image{{{std::make_shared<OtherContent>(), {8, 8}}, {nullptr, {8, 8}}}, {8, 8}};
  EXPECT_EQ(pixel(image, 1, 4, 4).alpha(), 0);
}

TEST_F(LinuxImagesTest, ABitmapStandsInForAMissingDrawing) {
  write("resources/icon.png", bitmap("png", {18, 18}, red));
  EXPECT_EQ(images().named("icon")->size, (Size{18, 18}));
}

TEST_F(LinuxImagesTest, EveryCommonFormatIsRead) {
  for (const char* format : {"png", "jpg", "bmp", "xpm", "ppm"}) {
    const auto image = images().fromData(bytes(bitmap(format, {20, 10}, blue)));
    ASSERT_TRUE(image) << format;
    EXPECT_EQ(image->size, (Size{20, 10})) << format;
    EXPECT_GT(pixel(*image, 1, 5, 5).blue(), 250) << format;
  }
  const auto image = images().fromData(bytes(drawing("blue", {20, 10})));
  ASSERT_TRUE(image);
  EXPECT_EQ(image->size, (Size{20, 10}));
  EXPECT_EQ(pixel(*image, 3, 59, 29), blue);
}

TEST_F(LinuxImagesTest, CutAndDamagedDataIsNothingOrAPicture) {
  const std::string whole = bitmap("png", {32, 32}, red);
  for (std::size_t length = 0; length < whole.size(); length += 7) {
    const auto image = images().fromData(bytes(whole.substr(0, length)));
    EXPECT_TRUE(!image || !renderImage(*image, 1).isNull()) << length;
  }
  EXPECT_FALSE(images().fromData(bytes("<svg")));
  EXPECT_FALSE(images().fromData(bytes("<svg xmlns=\"http://www.w3.org/2000/svg\"><")));
}

TEST_F(LinuxImagesTest, APictureThatWouldUnpackToAnEnormousOneIsRefused) {
  QImage enormous(20'000, 20'000, QImage::Format_Mono);
  enormous.fill(0);
  QBuffer buffer;
  ASSERT_TRUE(enormous.save(&buffer, "png"));
  ASSERT_LT(buffer.data().size(), 100'000);
  EXPECT_FALSE(images().fromData(bytes(buffer.data().toStdString())));
  EXPECT_FALSE(images().fromData(bytes(bitmap("png", {4097, 1}, red))));
}

TEST_F(LinuxImagesTest, ADrawingThatShowsOtherFilesIsRefused) {
  ASSERT_EQ(mkfifo(world.at("pipe").c_str(), 0600), 0);
  const auto showing = [](const std::string& target) {
    return bytes("<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"9\" height=\"9\" "
                 "xmlns:xlink=\"http://www.w3.org/1999/xlink\"><image width=\"9\" height=\"9\" "
                 "xlink:href=\"" +
                 target + "\"/></svg>");
  };
  EXPECT_FALSE(images().fromData(showing(world.at("pipe")))); // it would be waited for
  EXPECT_TRUE(images().fromData(showing("#inside")));
  EXPECT_TRUE(images().fromData(showing("data:image/png;base64,AAAA")));
}

} // namespace
} // namespace tavrel
