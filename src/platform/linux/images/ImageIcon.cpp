#include "platform/linux/images/ImageIcon.h"

#include "platform/linux/images/LinuxImage.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>

#include <algorithm>

namespace tavrel {

namespace {
constexpr double tickWidth = 12;
constexpr double gap = 4;
constexpr qreal disabledOpacity = 0.4;
constexpr double cell = menuIconSize.width;

Image fitted(const Image& image, QSizeF room) {
  const double width = std::max(image.size.width, 1.0);
  const double height = std::max(image.size.height, 1.0);
  const double scale = std::min(room.width() / width, room.height() / height);
  return resized(image, {width * scale, height * scale});
}

/// In the middle of the room, on whole device pixels, so that nothing is drawn twice.
void drawImage(QPainter& painter, const QRectF& room, const Image& image, qreal scale) {
  const QPixmap pixmap = renderImage(fitted(image, room.size()), scale);
  const QSizeF size = pixmap.deviceIndependentSize();
  const QPointF middle = room.center() - QPointF(size.width() / 2, size.height() / 2);
  painter.drawPixmap(
      QPointF(std::round(middle.x() * scale), std::round(middle.y() * scale)) / scale, pixmap);
}

QPixmap transparentPixmap(QSizeF size, qreal scale) {
  QPixmap pixmap((size * scale).toSize());
  pixmap.setDevicePixelRatio(scale);
  pixmap.fill(Qt::transparent);
  return pixmap;
}

class ImageIconEngine final : public QIconEngine {
public:
  explicit ImageIconEngine(Image image) : image_(std::move(image)) {}

  QPixmap scaledPixmap(const QSize& size, QIcon::Mode, QIcon::State, qreal scale) override {
    const QSizeF points = QSizeF(size) / scale;
    QPixmap pixmap = transparentPixmap(points, scale);
    QPainter painter(&pixmap);
    drawImage(painter, QRectF(QPointF(), points), image_, scale);
    return pixmap;
  }
  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    return scaledPixmap(size, mode, state, 1);
  }
  void paint(QPainter* painter, const QRect& rect, QIcon::Mode, QIcon::State) override {
    drawImage(*painter, QRectF(rect), image_, painter->device()->devicePixelRatio());
  }
  [[nodiscard]] QIconEngine* clone() const override { return new ImageIconEngine(image_); }

private:
  Image image_;
};

double imageLeft(MarkColumns columns) {
  return columns.tick ? tickWidth + gap : 0;
}

QColor tickColour(QIcon::Mode mode) {
  const QPalette palette = QGuiApplication::palette();
  if (mode == QIcon::Disabled)
    return palette.color(QPalette::Disabled, QPalette::Text);
  const bool highlighted = mode == QIcon::Active || mode == QIcon::Selected;
  return palette.color(highlighted ? QPalette::HighlightedText : QPalette::Text);
}

void drawTick(QPainter& painter, const QRectF& room, const QColor& colour) {
  const auto place = [&](qreal x, qreal y) {
    return QPointF(room.x() + x * room.width(), room.y() + y * room.height());
  };
  QPainterPath tick(place(0.12, 0.55));
  tick.lineTo(place(0.38, 0.76));
  tick.lineTo(place(0.86, 0.24));
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(colour, 1.8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.drawPath(tick);
}

/// All entries of a menu have the same columns, so that they line up.
class MarkIconEngine final : public QIconEngine {
public:
  MarkIconEngine(MarkColumns columns, Tick tick, std::optional<Image> image)
      : columns_(columns), tick_(tick), image_(std::move(image)) {}

  QPixmap scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State, qreal scale) override {
    const QSizeF points = QSizeF(size) / scale;
    QPixmap pixmap = transparentPixmap(points, scale);
    QPainter painter(&pixmap);
    draw(painter, QRectF(QPointF(), points), mode, scale);
    return pixmap;
  }
  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    return scaledPixmap(size, mode, state, 1);
  }
  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
    draw(*painter, QRectF(rect), mode, painter->device()->devicePixelRatio());
  }
  [[nodiscard]] QIconEngine* clone() const override { return new MarkIconEngine(*this); }

private:
  void draw(QPainter& painter, const QRectF& room, QIcon::Mode mode, qreal scale) const {
    const qreal left = room.center().x() - markWidth(columns_) / 2.0;
    if (tick_ == Tick::present)
      drawTick(painter, {left, room.center().y() - tickWidth / 2.0, tickWidth, tickWidth},
               tickColour(mode));
    if (mode == QIcon::Disabled)
      painter.setOpacity(disabledOpacity);
    if (image_ && isReady(*image_)) // left blank until it is
      drawImage(painter, {left + imageLeft(columns_), room.center().y() - cell / 2.0, cell, cell},
                *image_, scale);
  }

  MarkColumns columns_;
  Tick tick_;
  std::optional<Image> image_;
};
} // namespace

QIcon iconFromImage(const Image& image) {
  return QIcon(new ImageIconEngine(image));
}

int markWidth(MarkColumns columns) {
  if (columns.image)
    return static_cast<int>(imageLeft(columns) + cell);
  return columns.tick ? static_cast<int>(tickWidth) : 0;
}

QIcon markIcon(MarkColumns columns, Tick tick, const std::optional<Image>& image) {
  if (tick == Tick::absent && !image)
    return {};
  return QIcon(new MarkIconEngine(columns, tick, image));
}

} // namespace tavrel
