#pragma once

#include "platform/Image.h"
#include "platform/linux/images/IconLookups.h"

#include <map>
#include <string>

namespace tavrel {

/// What the icons of one desktop share.
class FileIcons {
public:
  explicit FileIcons(std::string resourceFolder) : resourceFolder_(std::move(resourceFolder)) {}

  /// Finds the icon now; an image without layers when not even the generic one is there.
  [[nodiscard]] Image find(const std::string& path);

  /// Finds it without making anybody wait. `found` is called in the main thread, maybe at once;
  /// `dropped` when it was not this one's turn for long, to be asked again if it still matters.
  void request(const std::string& path, std::function<void(Image)> found,
               std::function<void()> dropped);
  /// A short wait for what was requested; none when there was one lately.
  void waitBriefly(const std::function<bool()>& done) { lookups_.waitBriefly(done); }

private:
  [[nodiscard]] IconLookups::Folders folders();
  [[nodiscard]] Image imageFor(const FileIconFacts& evidence);
  [[nodiscard]] Image generic(GenericIcon icon);

  std::string resourceFolder_;
  IconLookups::Folders folders_; ///< read when they are first needed
  std::map<GenericIcon, Image> generic_;
  IconLookups lookups_;
};

} // namespace tavrel
