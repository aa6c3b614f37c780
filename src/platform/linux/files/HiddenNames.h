#pragma once

#include <chrono>
#include <map>
#include <set>
#include <string>
#include <string_view>

namespace tavrel {

/// Names that file managers hide: those that begin with a full stop, backups ("name~") and those
/// that the folder lists in its file ".hidden", one a line. That file is cached for a second, since
/// browsing asks about every name of a folder.
class HiddenNames {
public:
  /// Whether the last component of the path is hidden; links in the path are not resolved.
  [[nodiscard]] bool hides(std::string_view path);

private:
  [[nodiscard]] bool isListed(std::string_view folder, std::string_view name);

  using Time = std::chrono::steady_clock::time_point;
  struct Folder {
    Time readAt;
    std::set<std::string, std::less<>> names;
  };
  std::map<std::string, Folder, std::less<>> folders_;
};

} // namespace tavrel
