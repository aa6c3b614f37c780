#pragma once

#include "platform/Image.h"
#include "platform/linux/images/IconLookups.h"

#include <map>
#include <string>

namespace tavrel {

/// Finds the icons of files, and caches what they have in common.
class FileIcons {
public:
  explicit FileIcons(std::string resourceFolder) : resourceFolder_(std::move(resourceFolder)) {}

  /// Finds the icon now; an image without layers when not even the generic one is there.
  [[nodiscard]] Image find(const std::string& path);

  /// Finds it in another thread. `found` is called in the main thread, maybe at once; `dropped`
  /// when too many newer requests came, so that the icon must be requested again if it still
  /// matters.
  void request(const std::string& path, std::function<void(Image)> found,
               std::function<void()> dropped);
  /// See IconLookups::waitBriefly.
  void waitBriefly(const std::function<bool()>& done) { lookups_.waitBriefly(done); }

private:
  [[nodiscard]] IconLookups::Folders folders();
  [[nodiscard]] Image imageFor(const FileIconFacts& facts);
  [[nodiscard]] Image generic(GenericIcon icon);

  std::string resourceFolder_;
  IconLookups::Folders folders_; ///< read when first needed
  std::map<GenericIcon, Image> generic_;
  IconLookups lookups_;
};

} // namespace tavrel
