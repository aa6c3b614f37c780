#include "platform/memory/MemoryImages.h"

#include "platform/memory/NamedImageContent.h"

namespace tavrel {

namespace {
class MemoryImageContent final : public NamedImageContent {
public:
  explicit MemoryImageContent(std::string name) : name_(std::move(name)) {}
  std::string name() const override { return name_; }

private:
  std::string name_;
};

Image picture(std::string name, Size size) {
  return {{{std::make_shared<MemoryImageContent>(std::move(name)), size}}, size};
}
} // namespace

std::optional<Image> MemoryImages::named(const std::string& name) {
  control.named.push_back(name);
  const auto resource = control.resources.find(name);
  if (resource == control.resources.end())
    return std::nullopt;
  return picture("resource " + name, resource->second);
}

std::optional<Image> MemoryImages::fromData(const Bytes& data) {
  if (data.empty() || control.junk.contains(data))
    return std::nullopt;
  return picture("data " + std::to_string(data.size()) + " bytes", control.dataSize);
}

std::optional<Image> MemoryImages::iconForFile(const std::string& path) {
  control.iconsAsked.push_back(path);
  if (!files_.exists(path) || control.withoutIcon.contains(path))
    return std::nullopt;
  return picture("icon of " + path, menuIconSize);
}

std::optional<Image> MemoryImages::iconForListedFile(const std::string& path, FileKind kind) {
  control.iconsAsked.push_back(path);
  if (kind == FileKind::none || control.withoutIcon.contains(path))
    return std::nullopt;
  return picture("icon of " + path, menuIconSize);
}

std::vector<std::string> pictureNames(const Image& image) {
  std::vector<std::string> names;
  for (const ImageLayer& layer : image.layers) {
    const auto* content = dynamic_cast<const NamedImageContent*>(layer.content.get());
    names.push_back(content ? content->name() : "?");
  }
  return names;
}

} // namespace tavrel
