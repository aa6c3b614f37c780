#pragma once

#include "platform/Images.h"

#include <map>

namespace tavrel {

class FileIcons;

/// Pictures from the resource folder, from data, and from the desktop's icon theme.
class LinuxImages final : public Images {
public:
  /// The folder holds NAME.svg (or NAME.png) for every named image, and genericFile,
  /// genericFolder and genericApplication for files the icon theme has nothing for.
  explicit LinuxImages(std::string resourceFolder);

  std::optional<Image> named(const std::string& name) override;
  std::optional<Image> fromData(const Bytes& data) override;
  std::optional<Image> iconForFile(const std::string& path) override;
  std::optional<Image> iconForListedFile(const std::string& path, FileKind kind) override;

private:
  [[nodiscard]] Image fileIcon(const std::string& path);

  std::string resourceFolder_;
  std::map<std::string, std::optional<Image>> named_;
  std::shared_ptr<FileIcons> icons_;
};

} // namespace tavrel
