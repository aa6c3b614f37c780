#pragma once

#include "platform/Images.h"

namespace tavrel {

/// Pictures from the bundle, from data, and the icons that the system shows for files.
class MacImages final : public Images {
public:
  /// Of the application's own bundle when no folder is named.
  explicit MacImages(std::string folder = {}) : folder_(std::move(folder)) {}

  std::optional<Image> named(const std::string& name) override;
  std::optional<Image> fromData(const Bytes& data) override;
  std::optional<Image> iconForFile(const std::string& path) override;
  std::optional<Image> iconForListedFile(const std::string& path, FileKind kind) override;

private:
  std::string folder_;
};

} // namespace tavrel
