#include "platform/linux/files/HiddenNames.h"

#include "platform/linux/files/FileWithTimeout.h"
#include "platform/linux/files/MountHealth.h"

#include <sstream>

namespace tavrel {

namespace {
constexpr std::chrono::seconds cacheTime{1};
constexpr std::size_t mostCachedFolders = 64;
constexpr std::size_t largestHiddenList = std::size_t{1} << 20; // bytes

std::set<std::string, std::less<>> readNames(std::string_view folder) {
  const std::string list = std::string(folder) + "/.hidden";
  std::istringstream lines(readFileWithTimeout(list, largestHiddenList).value_or(std::string()));
  std::set<std::string, std::less<>> names;
  for (std::string line; std::getline(lines, line);)
    names.insert(line);
  return names;
}
} // namespace

bool HiddenNames::hides(std::string_view path) {
  while (path.size() > 1 && path.ends_with('/'))
    path.remove_suffix(1);
  const std::size_t slash = path.rfind('/');
  if (slash == std::string_view::npos || path.size() == 1)
    return false;
  const std::string_view name = path.substr(slash + 1);
  return name.starts_with('.') || name.ends_with('~') || isListed(path.substr(0, slash), name);
}

bool HiddenNames::isListed(std::string_view folder, std::string_view name) {
  const Time now = std::chrono::steady_clock::now();
  auto cached = folders_.find(folder);
  if (cached == folders_.end() || now - cached->second.readAt > cacheTime) {
    if (folders_.size() >= mostCachedFolders)
      folders_.clear();
    cached = folders_.insert_or_assign(std::string(folder), Folder{now, readNames(folder)}).first;
  }
  return cached->second.names.contains(name);
}

} // namespace tavrel
