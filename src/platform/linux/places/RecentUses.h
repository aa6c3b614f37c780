#pragma once

#include <cstdint>
#include <string>
#include <string_view>
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

/// What a text of bookmarks lists.
struct RecentUses {
  std::vector<RecentUse> uses; ///< newest first
  std::string problem;         ///< in one clause; empty when the text is whole
};

/// Bookmarks as XBEL, the way desktops keep "recently-used.xbel": of a malformed text those before
/// the mistake, of one that declares entities none, and of very many the first 20,000.
[[nodiscard]] RecentUses parseRecentUses(std::string_view text);

} // namespace tavrel
