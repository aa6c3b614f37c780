#include "platform/linux/images/ImageContents.h"

#include "platform/linux/images/LinuxImage.h"
#include "platform/linux/system/BoundedFile.h"

#include <QBuffer>
#include <QImageReader>
#include <QPainter>
#include <QSvgRenderer>
#include <QXmlStreamReader>

namespace tavrel {

namespace {
constexpr int largestContentSide = 4096; // pixels of a picture that is to be an icon
constexpr int keptSide = 512;            // pixels; what is larger is kept in a smaller copy
constexpr std::size_t largestImageFile = std::size_t{16} << 20;

Size sizeOf(QSize size) {
  return {static_cast<double>(size.width()), static_cast<double>(size.height())};
}

bool isSensible(QSize size) {
  return !size.isEmpty() && size.width() <= largestContentSide &&
         size.height() <= largestContentSide;
}

class DrawingContent final : public LinuxImageContent {
public:
  explicit DrawingContent(std::unique_ptr<QSvgRenderer> drawing) : drawing_(std::move(drawing)) {}
  void paint(QPainter& painter, QSizeF pointSize, qreal) const override {
    drawing_->render(&painter, QRectF(QPointF(), pointSize));
  }

private:
  std::unique_ptr<QSvgRenderer> drawing_;
};

class BitmapContent final : public LinuxImageContent {
public:
  explicit BitmapContent(QImage bitmap) : bitmap_(std::move(bitmap)) {}
  void paint(QPainter& painter, QSizeF pointSize, qreal dpr) const override {
    const QImage fitting =
        bitmap_.scaled((pointSize * dpr).toSize(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    painter.drawImage(QRectF(QPointF(), pointSize), fitting);
  }

private:
  QImage bitmap_;
};

class IconContent final : public LinuxImageContent {
public:
  explicit IconContent(QIcon icon) : icon_(std::move(icon)) {}
  void paint(QPainter& painter, QSizeF pointSize, qreal dpr) const override {
    const QPixmap pixmap = icon_.pixmap(pointSize.toSize(), dpr);
    if (pixmap.isNull())
      return;
    const QSizeF size = pixmap.deviceIndependentSize().scaled(pointSize, Qt::KeepAspectRatio);
    const QSizeF margin = (pointSize - size) / 2;
    painter.drawPixmap(QRectF(QPointF(margin.width(), margin.height()), size), pixmap,
                       QRectF(pixmap.rect()));
  }

private:
  QIcon icon_;
};

Image imageOf(std::shared_ptr<const LinuxImageContent> content, Size size) {
  return {{{std::move(content), size}}, size};
}

bool isExternalReference(const QXmlStreamAttribute& attribute) {
  const auto target = attribute.value().trimmed();
  const bool inside = target.startsWith(u'#') || target.startsWith(QLatin1String("data:"));
  return attribute.name() == QLatin1String("href") && !inside;
}

/// Whether an SVG drawing refers to image files. Qt 6.4 would open them, whatever they are, and
/// wait without end for a pipe.
bool refersToFiles(const QByteArray& drawing) {
  QXmlStreamReader reader(drawing);
  while (!reader.atEnd()) {
    if (reader.readNext() != QXmlStreamReader::StartElement ||
        reader.name() != QLatin1String("image"))
      continue;
    for (const QXmlStreamAttribute& attribute : reader.attributes())
      if (isExternalReference(attribute))
        return true;
  }
  return false;
}

std::optional<Image> drawingFrom(const QByteArray& data) {
  auto drawing = std::make_unique<QSvgRenderer>();
  if (refersToFiles(data) || !drawing->load(data) || drawing->defaultSize().isEmpty())
    return std::nullopt;
  const Size size = sizeOf(drawing->defaultSize());
  return imageOf(std::make_shared<DrawingContent>(std::move(drawing)), size);
}

std::optional<Image> bitmapFrom(QImageReader& reader) {
  if (!isSensible(reader.size()))
    return std::nullopt;
  reader.setAutoTransform(true);
  const QImage bitmap = reader.read();
  if (bitmap.isNull())
    return std::nullopt;
  const Size size = sizeOf(bitmap.size());
  const bool large = std::max(bitmap.width(), bitmap.height()) > keptSide;
  return imageOf(
      std::make_shared<BitmapContent>(
          large ? bitmap.scaled(keptSide, keptSide, Qt::KeepAspectRatio, Qt::SmoothTransformation)
                : bitmap),
      size);
}

} // namespace

std::optional<Image> imageFromData(const QByteArray& data) {
  QBuffer buffer;
  buffer.setData(data);
  QImageReader reader(&buffer);
  const QByteArray format = reader.format();
  if (format == "svgz")
    return std::nullopt; // its size is known only once it is unpacked
  return format == "svg" ? drawingFrom(data) : bitmapFrom(reader);
}

std::optional<Image> imageFromFile(const std::string& path) {
  const auto content = readFile(path, largestImageFile);
  return content ? imageFromData(QByteArray::fromStdString(*content)) : std::nullopt;
}

Image imageFromIcon(const QIcon& icon, Size size) {
  return imageOf(std::make_shared<IconContent>(icon), size);
}

} // namespace tavrel
