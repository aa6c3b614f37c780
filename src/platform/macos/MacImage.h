#pragma once

#include "platform/Image.h"

#import <AppKit/AppKit.h>

namespace tavrel {

/// A picture of the system's.
class MacImageContent final : public ImageContent {
public:
  explicit MacImageContent(NSImage* image) : image_(image) {}
  [[nodiscard]] NSImage* nsImage() const { return image_; }

private:
  NSImage* image_;
};

/// The composition, drawn anew for every screen it is shown on. Nil for an image without a size;
/// pictures of another desktop are left out.
[[nodiscard]] NSImage* nsImage(const Image& image);

} // namespace tavrel
