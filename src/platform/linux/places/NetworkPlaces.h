#pragma once

#include <optional>
#include <string>
#include <vector>

namespace tavrel {

/// A folder on another machine that the desktop knows.
struct NetworkPlace {
  std::string name; ///< as shown to the user
  std::string url;
};

/// The servers that were connected to (newest first), those that are mounted now, then those among
/// the bookmarks of file managers; each URL once.
[[nodiscard]] std::vector<NetworkPlace> networkPlaces();

/// The URL of the first place with the name NAME in a path "/Volumes/NAME/"; nothing when there is
/// none.
[[nodiscard]] std::optional<std::string> networkPlaceOfVolume(const std::string& path);

} // namespace tavrel
