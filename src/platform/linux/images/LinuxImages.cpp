#include "platform/linux/images/LinuxImages.h"

#include "platform/linux/files/ItemKind.h"
#include "platform/linux/images/FileIcons.h"
#include "platform/linux/images/IconTheme.h"
#include "platform/linux/images/ImageContents.h"
#include "platform/linux/images/LinuxImage.h"

#include <QApplication>
#include <QPainter>
#include <QWidget>

namespace tavrel {

namespace {
/// The image in the middle of a rectangle, as large as its proportions allow.
void paintFitted(QPainter& painter, QSizeF place, const Image& image, qreal dpr) {
  const QSizeF natural(image.size.width, image.size.height);
  const QSizeF size = natural.scaled(place, Qt::KeepAspectRatio);
  painter.translate((place.width() - size.width()) / 2, (place.height() - size.height()) / 2);
  paintImage(painter, resized(image, {size.width(), size.height()}), dpr);
}

void redrawOpenMenus() {
  for (QWidget* window : QApplication::topLevelWidgets())
    if (window->isVisible() && window->windowType() == Qt::Popup)
      window->update();
}

/// Finds its icon when it is first drawn, for most entries of a long menu never are.
class FileIconContent final : public LinuxImageContent {
public:
  FileIconContent(std::string path, std::shared_ptr<FileIcons> icons)
      : icon_(std::make_shared<Icon>()), path_(std::move(path)), icons_(std::move(icons)) {}

  void paint(QPainter& painter, QSizeF pointSize, qreal dpr) const override {
    if (!icon_->image)
      icon_->image = icons_->find(path_);
    if (!icon_->image->layers.empty())
      paintFitted(painter, pointSize, *icon_->image, dpr);
  }

  [[nodiscard]] bool isReady() const override {
    if (!icon_->image && !icon_->isRequested)
      request();
    if (!icon_->image)
      icons_->waitBriefly([this] { return icon_->image.has_value(); });
    icon_->isMissing = !icon_->image;
    return !icon_->isMissing;
  }

private:
  struct Icon {
    std::optional<Image> image;
    bool isRequested = false;
    bool isMissing = false; ///< the last drawing had to leave it out
  };

  void request() const {
    icon_->isRequested = true;
    const std::weak_ptr<Icon> weakIcon = icon_;
    icons_->request(
        path_,
        [weakIcon](Image found) {
          const auto icon = weakIcon.lock();
          if (!icon)
            return;
          icon->image = std::move(found);
          if (icon->isMissing)
            redrawOpenMenus();
        },
        [weakIcon] {
          if (const auto icon = weakIcon.lock())
            icon->isRequested = false;
        });
  }

  std::shared_ptr<Icon> icon_;
  std::string path_;
  std::shared_ptr<FileIcons> icons_;
};

} // namespace

LinuxImages::LinuxImages(std::string resourceFolder)
    : resourceFolder_(std::move(resourceFolder)),
      icons_(std::make_shared<FileIcons>(resourceFolder_)) {
  ensureIconTheme();
}

std::optional<Image> LinuxImages::named(const std::string& name) {
  if (name.empty() || name.find('/') != std::string::npos)
    return std::nullopt;
  if (const auto known = named_.find(name); known != named_.end())
    return known->second;
  auto image = imageFromFile(resourceFolder_ + '/' + name + ".svg");
  if (!image)
    image = imageFromFile(resourceFolder_ + '/' + name + ".png");
  return named_[name] = std::move(image);
}

std::optional<Image> LinuxImages::fromData(const Bytes& data) {
  return imageFromData(
      QByteArray(reinterpret_cast<const char*>(data.data()), static_cast<qsizetype>(data.size())));
}

std::optional<Image> LinuxImages::iconForFile(const std::string& path) {
  if (!path.starts_with('/') || !fileStatus(path, FinalLink::follow))
    return std::nullopt;
  return fileIcon(path);
}

std::optional<Image> LinuxImages::iconForListedFile(const std::string& path, FileKind kind) {
  return kind == FileKind::none ? std::nullopt : std::optional(fileIcon(path));
}

Image LinuxImages::fileIcon(const std::string& path) {
  return {{{std::make_shared<FileIconContent>(path, icons_), menuIconSize}}, menuIconSize};
}

} // namespace tavrel
