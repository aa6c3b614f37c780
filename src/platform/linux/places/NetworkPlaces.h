#pragma once

#include <optional>
#include <string>
#include <vector>

namespace tavrel {

/// A place on another machine that the desktop remembers.
struct NetworkPlace {
  std::string name; ///< as people see it
  std::string url;
};

/// The servers that were connected to (newest first), those that are mounted now, then those among
/// the bookmarks of file managers; each URL once.
[[nodiscard]] std::vector<NetworkPlace> networkPlaces();

/// The URL of the first place whose volume, "/Volumes/NAME/", is that path; nothing when there is
/// none.
[[nodiscard]] std::optional<std::string> networkPlaceOfVolume(const std::string& path);

} // namespace tavrel
