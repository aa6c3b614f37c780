#import "platform/macos/MacImages.h"

#import "platform/macos/BundleFolder.h"
#import "platform/macos/Conversions.h"
#import "platform/macos/MacImage.h"
#include "platform/macos/OfThisDesktop.h"

namespace tavrel {

namespace {

std::optional<Image> wholeImage(NSImage* image) {
  if (!image.valid || !(image.size.width > 0 && image.size.height > 0))
    return std::nullopt;
  const Size size = sizeOf(image.size);
  return Image{{{std::make_shared<MacImageContent>(image), size}}, size};
}

// The icon is read when it is drawn first: most entries of a long menu are never drawn.
NSImage* lateIcon(NSString* path) {
  return [NSImage imageWithSize:nsSize(menuIconSize)
                        flipped:NO
                 drawingHandler:^BOOL(NSRect place) {
                   @autoreleasepool {
                     [[NSWorkspace.sharedWorkspace iconForFile:path] drawInRect:place];
                     return YES;
                   }
                 }];
}

void drawLayer(const ImageLayer& layer) {
  const auto* content = ofThisDesktop<MacImageContent>(layer.content.get());
  if (content)
    [content->nsImage() drawInRect:NSMakeRect(0, 0, layer.size.width, layer.size.height)
                          fromRect:NSZeroRect
                         operation:NSCompositingOperationSourceOver
                          fraction:1];
}

} // namespace

NSImage* nsImage(const Image& image) {
  if (!(image.size.width > 0 && image.size.height > 0))
    return nil;
  const std::vector<ImageLayer> layers = image.layers;
  return [NSImage imageWithSize:nsSize(image.size)
                        flipped:NO
                 drawingHandler:^BOOL(NSRect) {
                   @autoreleasepool {
                     for (const ImageLayer& layer : layers)
                       drawLayer(layer);
                     return YES;
                   }
                 }];
}

std::optional<Image> MacImages::named(const std::string& name) {
  if (name.empty() || name.find('/') != std::string::npos)
    return std::nullopt;
  if (NSImage* const image = [bundleIn(folder_) imageForResource:nsString(name)])
    return wholeImage(image);
  NSURL* const drawing = [bundleIn(folder_) URLForResource:nsString(name) withExtension:@"svg"];
  return drawing ? wholeImage([[NSImage alloc] initWithContentsOfURL:drawing]) : std::nullopt;
}

std::optional<Image> MacImages::fromData(const Bytes& data) {
  return data.empty() ? std::nullopt : wholeImage([[NSImage alloc] initWithData:nsData(data)]);
}

std::optional<Image> MacImages::iconForFile(const std::string& path) {
  NSURL* const file = fileUrl(path);
  if (!file || ![NSFileManager.defaultManager fileExistsAtPath:file.path])
    return std::nullopt;
  return wholeImage(lateIcon(file.path));
}

std::optional<Image> MacImages::iconForListedFile(const std::string& path, FileKind kind) {
  NSURL* const file = kind == FileKind::none ? nil : fileUrl(path);
  return file ? std::optional(wholeImage(lateIcon(file.path))) : std::nullopt;
}

} // namespace tavrel
