#pragma once

#include "platform/linux/places/RecentUses.h"

#include <array>
#include <optional>

namespace tavrel {

/// What a file of bookmarks lists, newest first. Nothing from a file above 16 MiB. Trouble is one
/// line on standard error; that there is no file is none.
[[nodiscard]] std::vector<RecentUse> readRecentUses(const std::string& path);

/// The same, but a file that has not changed is not read again: a desktop in long use keeps
/// thousands of bookmarks, and a menu that opens asks for them several times.
class KeptRecentUses {
public:
  /// Stays as it is until the next call.
  [[nodiscard]] const std::vector<RecentUse>& read(const std::string& path);

private:
  /// Device, number, size, and the nanoseconds of its last two kinds of change.
  using Version = std::array<std::int64_t, 5>;
  [[nodiscard]] static std::optional<Version> settledVersion(const std::string& path);

  std::string path_;
  std::optional<Version> version_; ///< of what is kept; nothing when it must be read again
  std::vector<RecentUse> uses_;
};

} // namespace tavrel
