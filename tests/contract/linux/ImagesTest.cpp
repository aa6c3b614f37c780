#include "contract/ImagesContract.h"

#include "platform/linux/FileIcons.h"
#include "platform/linux/IconTheme.h"
#include "platform/linux/LinuxImage.h"
#include "platform/linux/LinuxImages.h"

#include <QBuffer>
#include <QImage>
#include <QPainter>
#include <QTemporaryDir>

#include <filesystem>
#include <fstream>
#include <sys/stat.h>

namespace tavrel {
namespace {

namespace fs = std::filesystem;
using ::testing::Contains;
using ::testing::ElementsAre;

const QColor red(255, 0, 0);
const QColor blue(0, 0, 255);

std::string drawing(const std::string& colour, Size size) {
  const std::string extent = "width=\"" + std::to_string(static_cast<int>(size.width)) +
                             "\" height=\"" + std::to_string(static_cast<int>(size.height)) + "\"";
  return "<svg xmlns=\"http://www.w3.org/2000/svg\" " + extent + "><rect " + extent + " fill=\"" +
         colour + "\"/></svg>";
}

std::string bitmap(const char* format, QSize size, QColor colour) {
  QImage image(size, QImage::Format_ARGB32);
  image.fill(colour);
  QBuffer buffer;
  EXPECT_TRUE(image.save(&buffer, format));
  return buffer.data().toStdString();
}

Bytes bytes(const std::string& text) {
  return {text.begin(), text.end()};
}

class LinuxWorld {
public:
  Images& images() { return images_; }
  std::string at(const std::string& name) { return folder_.filePath(name.c_str()).toStdString(); }
  std::string write(const std::string& name, const std::string& content) {
    fs::create_directories(fs::path(at(name)).parent_path());
    std::ofstream(at(name), std::ios::binary) << content;
    return at(name);
  }
  void addResource(const std::string& name, Size size) { addDrawing(name, "red", size); }
  void addDrawing(const std::string& name, const std::string& colour, Size size) {
    write("resources/" + name + ".svg", drawing(colour, size));
  }
  Bytes pictureData() { return bytes(bitmap("png", {32, 32}, red)); }
  Bytes junkData() { return bytes("no picture"); }
  std::string addFile() { return write("file", "text"); }
  std::string addFolder() {
    fs::create_directory(at("folder"));
    return at("folder");
  }
  std::string brokenLink() {
    fs::create_symlink("nowhere", at("broken"));
    return at("broken");
  }

private:
  QTemporaryDir folder_;
  LinuxImages images_{at("resources")};
};

INSTANTIATE_TYPED_TEST_SUITE_P(Linux, ImagesContract, LinuxWorld);

class LinuxImagesTest : public ImagesContract<LinuxWorld> {
protected:
  IconChoice chosen(const std::string& path) { return chooseIcon(path, {}); }
  std::string write(const std::string& name, const std::string& content) {
    return world.write(name, content);
  }
};

QColor pixel(const Image& image, qreal dpr, int x, int y) {
  return renderImage(image, dpr).toImage().pixelColor(x, y);
}

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

TEST_F(LinuxImagesTest, FilesThatAreGoneBeforeTheyAreDrawnDoNoHarm) {
  const auto icon = images().iconForFile(world.addFile());
  fs::remove(world.at("file"));
  ASSERT_TRUE(icon);
  EXPECT_EQ(renderImage(*icon, 1).size(), QSize(16, 16));
}

TEST_F(LinuxImagesTest, EveryKindOfFileHasAnIconThatShows) {
  world.addDrawing("genericFile", "red", {16, 16});
  ASSERT_EQ(mkfifo(world.at("pipe").c_str(), 0600), 0);
  fs::create_directories(world.at("Tool.AppDir"));
  for (const std::string& path :
       {world.addFile(), world.addFolder(), world.at("pipe"), world.at("Tool.AppDir"),
        std::string("/"), std::string("/dev/null"), std::string("/bin/ls"), write("a.pdf", ""),
        write("b.unheard-of-ending", "\1\2\3"),
        write("c.desktop", "[Desktop Entry]\nType=Application\nIcon=no-such-icon\n")})
    for (const int scale : {1, 2}) {
      const QImage drawn = renderImage(*images().iconForFile(path), scale).toImage();
      QImage nothing(drawn.size(), drawn.format());
      nothing.fill(Qt::transparent);
      nothing.setDevicePixelRatio(scale);
      EXPECT_NE(drawn, nothing) << path;
    }
}

TEST_F(LinuxImagesTest, GenericIconsStandInWhereTheThemeHasNothing) {
  world.addDrawing("genericFile", "red", {16, 16});
  ASSERT_EQ(mkfifo(world.at("pipe").c_str(), 0600), 0);
  EXPECT_EQ(pixel(*images().iconForFile(world.at("pipe")), 1, 8, 8), red);
}

TEST_F(LinuxImagesTest, AnEntryShowsTheIconItNames) {
  const std::string picture = write("own.png", bitmap("png", {48, 48}, blue));
  const std::string path =
      write("a.desktop", "[Desktop Entry]\nType=Application\nIcon=" + picture + "\n");
  EXPECT_EQ(pixel(*images().iconForFile(path), 2, 16, 16), blue);
  const std::string named =
      write("b.desktop", "[Desktop Entry]\nType=Application\nIcon=editor.png\n");
  EXPECT_EQ(chosen(named).themeNames.front(), "editor");
  EXPECT_EQ(chosen(named).generic, GenericIcon::application);
}

TEST_F(LinuxImagesTest, AnEntryWhosePictureIsNoneFallsBack) {
  ASSERT_EQ(mkfifo(world.at("pipe").c_str(), 0600), 0);
  const std::string path =
      write("a.desktop", "[Desktop Entry]\nType=Application\nIcon=" + world.at("pipe") + "\n");
  EXPECT_NE(renderImage(*images().iconForFile(path), 1).toImage().pixelColor(8, 8).alpha(), 0);
}

TEST_F(LinuxImagesTest, ALinkEntryShowsTheIconOfItsTargetUnlessItNamesOne) {
  const std::string folder = world.addFolder();
  const std::string url = "[Desktop Entry]\nType=Link\nURL=file://" + folder + "\n";
  EXPECT_EQ(chosen(write("a.desktop", url)).generic, GenericIcon::folder);
  EXPECT_EQ(chosen(write("b.desktop", url + "Icon=own\n")).themeNames.front(), "own");
  const std::string loop = "[Desktop Entry]\nType=Link\nURL=file://" + world.at("c.desktop");
  EXPECT_EQ(chosen(write("c.desktop", loop)).generic, GenericIcon::file);
}

TEST_F(LinuxImagesTest, ABundleShowsThePictureItCarries) {
  const std::string picture = write("One.AppDir/.DirIcon", bitmap("png", {64, 64}, blue));
  EXPECT_EQ(pixel(*images().iconForFile(world.at("One.AppDir")), 1, 8, 8), blue);
  const std::string named = write("Two.AppDir/two.png", bitmap("png", {64, 64}, blue));
  write("Two.AppDir/two.desktop", "[Desktop Entry]\nType=Application\nIcon=two\n");
  EXPECT_EQ(chosen(world.at("Two.AppDir")).picture, named);
  const std::string resource = write("Three.app/Contents/Resources/Three.png", "x");
  EXPECT_EQ(chosen(world.at("Three.app")).picture, resource);
}

TEST_F(LinuxImagesTest, AFolderMayNameItsIcon) {
  const std::string folder = world.addFolder();
  write("folder/.directory", "[Desktop Entry]\nIcon=folder-red\n");
  EXPECT_THAT(chosen(folder).themeNames, ElementsAre("folder-red", "folder", "inode-directory"));
}

TEST_F(LinuxImagesTest, ThePersonsFoldersHaveIconsOfTheirOwn) {
  const SpecialFolders folders = specialFolders();
  const std::string home = std::getenv("HOME");
  EXPECT_EQ(folders.at(home), "user-home");
  EXPECT_EQ(folders.at("/"), "drive-harddisk");
  EXPECT_EQ(folders.at(home + "/Documents"), "folder-documents");
  EXPECT_EQ(chooseIcon(home, folders).themeNames.front(), "user-home");
}

TEST_F(LinuxImagesTest, TheNameOfAFileDecidesBeforeItsContent) {
  EXPECT_THAT(chosen(write("a.pdf", "plain text")).themeNames, Contains("application-pdf"));
  EXPECT_THAT(chosen(write("unnamed", "%PDF-1.4\n")).themeNames, Contains("application-pdf"));
  EXPECT_THAT(chosen(write("empty", "")).themeNames, Contains("text-x-generic"));
}

TEST_F(LinuxImagesTest, TheIconThemeIsTheToolkitsThenThatOfGtkThenAdwaita) {
  const QString folder = QString::fromStdString(world.at("config"));
  EXPECT_EQ(chosenIconTheme("Papirus", folder), "Papirus");
  EXPECT_EQ(chosenIconTheme("hicolor", folder), "Adwaita");
  EXPECT_EQ(chosenIconTheme("", folder), "Adwaita");
  write("config/gtk-3.0/settings.ini", "[Settings]\ngtk-icon-theme-name=Tango\n");
  EXPECT_EQ(chosenIconTheme("hicolor", folder), "Tango");
}

TEST_F(LinuxImagesTest, AskingForAnIconDoesNotLookForIt) {
  write("resources/genericFile.svg", "not read yet");
  const auto icon = images().iconForFile(world.addFile());
  world.addDrawing("genericFile", "red", {16, 16});
  fs::remove(world.at("file"));
  EXPECT_EQ(pixel(*icon, 1, 8, 8), red);
}

} // namespace
} // namespace tavrel
