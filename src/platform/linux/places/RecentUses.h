#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tavrel {

/// The last use of a file or URL by one application.
struct RecentApplicationUse {
  std::string name;
  std::string exec;      ///< its command line, quoted as it is written
  std::int64_t when = 0; ///< milliseconds since 1970
};

/// A file or URL that was used lately.
struct RecentUse {
  std::string url;
  std::string title;     ///< empty for none
  std::int64_t when = 0; ///< milliseconds since 1970; 0 when unknown
  bool isPrivate = false;
  std::vector<RecentApplicationUse> applications;
};

/// The content of a file of bookmarks.
struct RecentUses {
  std::vector<RecentUse> uses; ///< newest first
  std::string problem;         ///< one clause; empty when the text is well-formed
};

/// Reads bookmarks in XBEL, the format of "recently-used.xbel". Of a malformed text the bookmarks
/// before the error count, of one that declares entities none, and never more than the first
/// 20,000.
[[nodiscard]] RecentUses parseRecentUses(std::string_view text);

} // namespace tavrel
