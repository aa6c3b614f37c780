#pragma once

#include "platform/linux/places/RecentUses.h"

#include <array>
#include <optional>

namespace tavrel {

/// The bookmarks in a file, newest first; none from a file of more than 16 MiB. An error is one
/// line on standard error, but a missing file is no error.
[[nodiscard]] std::vector<RecentUse> readRecentUses(const std::string& path);

/// The same with a cache: a desktop in long use has thousands of bookmarks, and a menu that opens
/// asks for them several times. A file that has not changed is not read again.
class CachedRecentUses {
public:
  /// The reference is valid until the next call.
  [[nodiscard]] const std::vector<RecentUse>& read(const std::string& path);

private:
  /// Device, inode, size, mtime and ctime in nanoseconds.
  using Version = std::array<std::int64_t, 5>;
  [[nodiscard]] static std::optional<Version> stableVersion(const std::string& path);

  std::string path_;
  std::optional<Version> version_; ///< of the cached bookmarks; nothing: read again
  std::vector<RecentUse> uses_;
};

} // namespace tavrel
