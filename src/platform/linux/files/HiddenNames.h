#pragma once

#include <chrono>
#include <map>
#include <set>
#include <string>
#include <string_view>

namespace tavrel {

/// What people do not want to see: names that begin with a full stop, backups ("name~") and the
/// names that a folder lists in its file ".hidden", one a line. What a folder says is kept for a
/// second, since a whole listing asks about each of its names.
class HiddenNames {
public:
  /// Goes by the last component of the path as it is written.
  [[nodiscard]] bool hides(std::string_view path);

private:
  [[nodiscard]] bool listed(std::string_view folder, std::string_view name);

  using Time = std::chrono::steady_clock::time_point;
  struct Folder {
    Time read;
    std::set<std::string, std::less<>> names;
  };
  std::map<std::string, Folder, std::less<>> folders_;
};

} // namespace tavrel
