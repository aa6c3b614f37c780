#pragma once

#include "platform/Image.h"
#include "platform/linux/IconChoice.h"

#include <map>
#include <optional>
#include <string>

namespace tavrel {

/// What the icons of one desktop share.
class FileIcons {
public:
  explicit FileIcons(std::string resourceFolder) : resourceFolder_(std::move(resourceFolder)) {}

  /// Finds the icon now; an image without layers when not even the generic one is there.
  [[nodiscard]] Image find(const std::string& path);

private:
  [[nodiscard]] Image generic(GenericIcon icon);

  std::string resourceFolder_;
  std::optional<SpecialFolders> folders_; ///< read when they are first needed
  std::map<GenericIcon, Image> generic_;
};

} // namespace tavrel
