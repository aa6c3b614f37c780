#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tavrel {

/// One application's use of a thing.
struct RecentApplicationUse {
  std::string name;
  std::string exec;      ///< its command line, quoted as it is written
  std::int64_t when = 0; ///< milliseconds since 1970
};

/// A thing that was used lately.
struct RecentUse {
  std::string url;
  std::string title;     ///< empty for none
  std::int64_t when = 0; ///< milliseconds since 1970; 0 when it is not told
  bool isPrivate = false;
  std::vector<RecentApplicationUse> applications;
};

/// What a file of bookmarks (XBEL, as desktops keep "recently-used.xbel") lists, newest first.
/// Nothing from a file above 16 MiB or one that declares entities; of a malformed file what stands
/// before the mistake. Either trouble is one line on standard error.
[[nodiscard]] std::vector<RecentUse> readRecentUses(const std::string& path);

} // namespace tavrel
