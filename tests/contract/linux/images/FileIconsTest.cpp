#include "contract/linux/images/LinuxImagesFixture.h"

#include "platform/linux/images/IconChoice.h"
#include "platform/linux/images/IconTheme.h"
#include "support/Desktop.h"

#include <sys/stat.h>

namespace tavrel {

GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(ImagesContract); // it runs in ImagesTest

namespace {

namespace fs = std::filesystem;
using ::testing::Contains;
using ::testing::ElementsAre;

class FileIconsTest : public LinuxImagesTest {
protected:
  IconChoice chosen(const std::string& path) { return chooseIcon(path, {}); }
};

TEST_F(FileIconsTest, FilesThatAreGoneBeforeTheyAreDrawnDoNoHarm) {
  const auto icon = images().iconForFile(world.addFile());
  fs::remove(world.at("file"));
  ASSERT_TRUE(icon);
  EXPECT_EQ(renderImage(*icon, 1).size(), QSize(16, 16));
}

TEST_F(FileIconsTest, AnIconIsAtHandSoonAfterAMenuAskedForIt) {
  const auto icon = images().iconForFile(world.addFile());
  EXPECT_TRUE(eventually([&] { return isReady(*icon); }));
  EXPECT_EQ(renderImage(*icon, 1).size(), QSize(16, 16));
}

TEST_F(FileIconsTest, EveryKindOfFileHasAnIconThatShows) {
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

TEST_F(FileIconsTest, GenericIconsStandInWhereTheThemeHasNothing) {
  world.addDrawing("genericFile", "red", {16, 16});
  ASSERT_EQ(mkfifo(world.at("pipe").c_str(), 0600), 0);
  EXPECT_EQ(pixel(*images().iconForFile(world.at("pipe")), 1, 8, 8), red);
}

TEST_F(FileIconsTest, AnEntryShowsTheIconItNames) {
  const std::string picture = write("own.png", bitmap("png", {48, 48}, blue));
  const std::string path =
      write("a.desktop", "[Desktop Entry]\nType=Application\nIcon=" + picture + "\n");
  EXPECT_EQ(pixel(*images().iconForFile(path), 2, 16, 16), blue);
  const std::string named =
      write("b.desktop", "[Desktop Entry]\nType=Application\nIcon=editor.png\n");
  EXPECT_EQ(chosen(named).themeNames.front(), "editor");
  EXPECT_EQ(chosen(named).generic, GenericIcon::application);
}

TEST_F(FileIconsTest, AnEntryWhosePictureIsNoneFallsBack) {
  ASSERT_EQ(mkfifo(world.at("pipe").c_str(), 0600), 0);
  const std::string path =
      write("a.desktop", "[Desktop Entry]\nType=Application\nIcon=" + world.at("pipe") + "\n");
  EXPECT_NE(renderImage(*images().iconForFile(path), 1).toImage().pixelColor(8, 8).alpha(), 0);
}

TEST_F(FileIconsTest, ALinkEntryShowsTheIconOfItsTargetUnlessItNamesOne) {
  const std::string folder = world.addFolder();
  const std::string url = "[Desktop Entry]\nType=Link\nURL=file://" + folder + "\n";
  EXPECT_EQ(chosen(write("a.desktop", url)).generic, GenericIcon::folder);
  EXPECT_EQ(chosen(write("b.desktop", url + "Icon=own\n")).themeNames.front(), "own");
  const std::string loop = "[Desktop Entry]\nType=Link\nURL=file://" + world.at("c.desktop");
  EXPECT_EQ(chosen(write("c.desktop", loop)).generic, GenericIcon::file);
}

TEST_F(FileIconsTest, ABundleShowsThePictureItCarries) {
  const std::string picture = write("One.AppDir/.DirIcon", bitmap("png", {64, 64}, blue));
  EXPECT_EQ(pixel(*images().iconForFile(world.at("One.AppDir")), 1, 8, 8), blue);
  const std::string named = write("Two.AppDir/two.png", bitmap("png", {64, 64}, blue));
  write("Two.AppDir/two.desktop", "[Desktop Entry]\nType=Application\nIcon=two\n");
  EXPECT_EQ(chosen(world.at("Two.AppDir")).picture, named);
  const std::string resource = write("Three.app/Contents/Resources/Three.png", "x");
  EXPECT_EQ(chosen(world.at("Three.app")).picture, resource);
}

TEST_F(FileIconsTest, AFolderMayNameItsIcon) {
  const std::string folder = world.addFolder();
  write("folder/.directory", "[Desktop Entry]\nIcon=folder-red\n");
  EXPECT_THAT(chosen(folder).themeNames, ElementsAre("folder-red", "folder", "inode-directory"));
}

TEST_F(FileIconsTest, TheUsersFoldersHaveIconsOfTheirOwn) {
  const SpecialFolderIcons folders = specialFolderIcons();
  const std::string home = std::getenv("HOME");
  EXPECT_EQ(folders.at(home), "user-home");
  EXPECT_EQ(folders.at("/"), "drive-harddisk");
  EXPECT_EQ(folders.at(home + "/Documents"), "folder-documents");
  EXPECT_EQ(chooseIcon(home, folders).themeNames.front(), "user-home");
}

TEST_F(FileIconsTest, TheNameOfAFileDecidesBeforeItsContent) {
  EXPECT_THAT(chosen(write("a.pdf", "plain text")).themeNames, Contains("application-pdf"));
  EXPECT_THAT(chosen(write("unnamed", "%PDF-1.4\n")).themeNames, Contains("application-pdf"));
  EXPECT_THAT(chosen(write("empty", "")).themeNames, Contains("text-x-generic"));
}

TEST_F(FileIconsTest, TheIconThemeIsTheToolkitsThenThatOfGtkThenAdwaita) {
  const QString folder = QString::fromStdString(world.at("config"));
  EXPECT_EQ(chosenIconTheme("Papirus", folder), "Papirus");
  EXPECT_EQ(chosenIconTheme("hicolor", folder), "Adwaita");
  EXPECT_EQ(chosenIconTheme("", folder), "Adwaita");
  write("config/gtk-3.0/settings.ini", "[Settings]\ngtk-icon-theme-name=Tango\n");
  EXPECT_EQ(chosenIconTheme("hicolor", folder), "Tango");
}

TEST_F(FileIconsTest, AskingForAnIconDoesNotLookForIt) {
  write("resources/genericFile.svg", "not read yet");
  const auto icon = images().iconForFile(world.addFile());
  world.addDrawing("genericFile", "red", {16, 16});
  fs::remove(world.at("file"));
  EXPECT_EQ(pixel(*icon, 1, 8, 8), red);
}

} // namespace
} // namespace tavrel
