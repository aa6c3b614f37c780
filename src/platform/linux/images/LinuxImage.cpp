#include "platform/linux/images/LinuxImage.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace tavrel {

namespace {
constexpr double largestSide = 4096; // device pixels; nothing in a menu comes near

/// The next whole pixel, but not for an error of rounding alone.
int pixels(double points, qreal dpr) {
  return std::max(1, static_cast<int>(std::ceil(std::min(points * dpr, largestSide) - 0.001)));
}

QPixmap emptyPixmap(Size size, qreal dpr) {
  QPixmap pixmap(pixels(size.width, dpr), pixels(size.height, dpr));
  pixmap.setDevicePixelRatio(dpr);
  pixmap.fill(Qt::transparent);
  return pixmap;
}

void paintLayer(QPainter& painter, const ImageLayer& layer, double height, qreal dpr) {
  const auto* content = dynamic_cast<const LinuxImageContent*>(layer.content.get());
  if (!content)
    return;
  painter.save();
  painter.translate(0, height - layer.size.height);
  content->paint(painter, QSizeF(layer.size.width, layer.size.height), dpr);
  painter.restore();
}

} // namespace

bool isReady(const Image& image) {
  return std::all_of(image.layers.begin(), image.layers.end(), [](const ImageLayer& layer) {
    const auto* content = dynamic_cast<const LinuxImageContent*>(layer.content.get());
    return !content || content->isReady();
  });
}

QPixmap renderImage(const Image& image, qreal devicePixelRatio) {
  if (!(image.size.width > 0 && image.size.height > 0 && devicePixelRatio > 0))
    return {};
  QPixmap pixmap = emptyPixmap(image.size, devicePixelRatio);
  QPainter painter(&pixmap);
  paintImage(painter, image, devicePixelRatio);
  return pixmap;
}

void paintImage(QPainter& painter, const Image& image, qreal dpr) {
  painter.save();
  painter.setClipRect(QRectF(0, 0, image.size.width, image.size.height), Qt::IntersectClip);
  painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
  for (const ImageLayer& layer : image.layers)
    paintLayer(painter, layer, image.size.height, dpr);
  painter.restore();
}

} // namespace tavrel
