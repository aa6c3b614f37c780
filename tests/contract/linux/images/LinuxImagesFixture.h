#pragma once

#include "contract/ImagesContract.h"
#include "platform/linux/images/LinuxImage.h"
#include "platform/linux/images/LinuxImages.h"

#include <QBuffer>
#include <QColor>
#include <QImage>
#include <QTemporaryDir>

#include <filesystem>
#include <fstream>

namespace tavrel {

inline const QColor red(255, 0, 0);
inline const QColor blue(0, 0, 255);

inline std::string drawing(const std::string& colour, Size size) {
  const std::string extent = "width=\"" + std::to_string(static_cast<int>(size.width)) +
                             "\" height=\"" + std::to_string(static_cast<int>(size.height)) + "\"";
  return "<svg xmlns=\"http://www.w3.org/2000/svg\" " + extent + "><rect " + extent + " fill=\"" +
         colour + "\"/></svg>";
}

inline std::string bitmap(const char* format, QSize size, QColor colour) {
  QImage image(size, QImage::Format_ARGB32);
  image.fill(colour);
  QBuffer buffer;
  EXPECT_TRUE(image.save(&buffer, format));
  return buffer.data().toStdString();
}

inline Bytes bytes(const std::string& text) {
  return {text.begin(), text.end()};
}

class LinuxWorld {
public:
  Images& images() { return images_; }
  std::string at(const std::string& name) { return folder_.filePath(name.c_str()).toStdString(); }
  std::string write(const std::string& name, const std::string& content) {
    std::filesystem::create_directories(std::filesystem::path(at(name)).parent_path());
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
    std::filesystem::create_directory(at("folder"));
    return at("folder");
  }
  std::string brokenLink() {
    std::filesystem::create_symlink("nowhere", at("broken"));
    return at("broken");
  }

private:
  QTemporaryDir folder_;
  LinuxImages images_{at("resources")};
};

class LinuxImagesTest : public ImagesContract<LinuxWorld> {
protected:
  std::string write(const std::string& name, const std::string& content) {
    return world.write(name, content);
  }
};

inline QColor pixel(const Image& image, qreal dpr, int x, int y) {
  return renderImage(image, dpr).toImage().pixelColor(x, y);
}

} // namespace tavrel
