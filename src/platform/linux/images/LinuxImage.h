#pragma once

#include "platform/Image.h"

#include <QPixmap>

class QPainter;
class QSizeF;

namespace tavrel {

/// A picture that can draw itself at any size and scale.
class LinuxImageContent : public ImageContent {
public:
  /// Fills the rectangle from the painter's origin to `pointSize` (origin top left, as painters
  /// have it). `dpr` is the number of device pixels a point has there.
  virtual void paint(QPainter& painter, QSizeF pointSize, qreal dpr) const = 0;

  /// Whether it can be drawn without waiting. When not, what it needs is fetched in another thread,
  /// and open menus are drawn again once that is there.
  [[nodiscard]] virtual bool isReady() const { return true; }
};

/// Whether every layer of the image is ready.
[[nodiscard]] bool isReady(const Image& image);

/// The image drawn for a screen with that many device pixels a point, on a transparent
/// ground; its device pixel ratio is set. Null for an image without a size. Pictures of another
/// desktop are left out. Call on the main thread.
[[nodiscard]] QPixmap renderImage(const Image& image, qreal devicePixelRatio);

/// The same onto a painter, filling the rectangle from its origin to the image's size.
void paintImage(QPainter& painter, const Image& image, qreal dpr);

} // namespace tavrel
