#pragma once

#include "base/Geometry.h"

#include <memory>
#include <vector>

namespace tavrel {

/// A picture owned by the desktop, drawn at whatever scale the screen needs.
class ImageContent {
public:
  ImageContent() = default;
  ImageContent(const ImageContent&) = delete;
  ImageContent& operator=(const ImageContent&) = delete;
  virtual ~ImageContent() = default;
};

/// One picture of a composition, drawn with its origin (bottom left) at the image's origin.
struct ImageLayer {
  std::shared_ptr<const ImageContent> content;
  Size size; ///< in points
};

/// A composition of pictures, bottom layer first, each drawn source-over the ones below.
struct Image {
  std::vector<ImageLayer> layers;
  Size size; ///< in points; what is drawn outside it is cut off
};

/// The image at another size: every layer keeps its proportion to it.
[[nodiscard]] inline Image resized(Image image, Size size) {
  for (ImageLayer& layer : image.layers) {
    layer.size.width *= image.size.width > 0 ? size.width / image.size.width : 1;
    layer.size.height *= image.size.height > 0 ? size.height / image.size.height : 1;
  }
  image.size = size;
  return image;
}

/// The image with a badge drawn over it at the origin, at the badge's own size.
[[nodiscard]] inline Image withBadge(Image image, const Image& badge) {
  image.layers.insert(image.layers.end(), badge.layers.begin(), badge.layers.end());
  return image;
}

} // namespace tavrel
