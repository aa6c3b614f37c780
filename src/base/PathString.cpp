#include "base/PathString.h"

#include <vector>

namespace tavrel {

namespace {

std::string_view withoutTrailingSlashes(std::string_view path) {
  while (path.size() > 1 && path.back() == '/')
    path.remove_suffix(1);
  return path;
}

// Where the last component begins in a path without trailing slashes.
std::size_t lastComponentStart(std::string_view path) {
  const std::size_t slash = path.rfind('/');
  return slash == std::string_view::npos ? 0 : slash + 1;
}

// Where the full stop of the ending is, npos when there is none.
std::size_t extensionDot(std::string_view path) {
  const std::size_t dot = path.rfind('.');
  if (dot == std::string_view::npos || dot <= lastComponentStart(path))
    return std::string_view::npos;
  return dot;
}

std::vector<std::string_view> components(std::string_view path) {
  std::vector<std::string_view> parts;
  while (!path.empty()) {
    const std::size_t slash = path.find('/');
    if (const std::string_view part = path.substr(0, slash); !part.empty())
      parts.push_back(part);
    path.remove_prefix(slash == std::string_view::npos ? path.size() : slash + 1);
  }
  return parts;
}

std::string joined(const std::vector<std::string_view>& parts) {
  std::string path;
  for (std::string_view part : parts)
    path.append(path.empty() ? "" : "/").append(part);
  return path;
}

} // namespace

std::string lastPathComponent(std::string_view path) {
  path = withoutTrailingSlashes(path);
  return std::string(path == "/" ? path : path.substr(lastComponentStart(path)));
}

std::string pathExtension(std::string_view path) {
  path = withoutTrailingSlashes(path);
  const std::size_t dot = extensionDot(path);
  return dot == std::string_view::npos ? "" : std::string(path.substr(dot + 1));
}

std::string deletingPathExtension(std::string_view path) {
  path = withoutTrailingSlashes(path);
  return std::string(path.substr(0, extensionDot(path)));
}

std::string deletingLastPathComponent(std::string_view path) {
  path = withoutTrailingSlashes(path);
  const std::string_view folder = path.substr(0, lastComponentStart(path));
  return std::string(withoutTrailingSlashes(folder));
}

std::string appendingPathComponent(std::string_view folder, std::string_view name) {
  std::string path(withoutTrailingSlashes(folder));
  if (!path.empty() && path.back() != '/')
    path += '/';
  return path.append(name);
}

std::string removingDotSegments(std::string_view path) {
  const bool absolute = path.starts_with('/');
  std::vector<std::string_view> kept;
  for (std::string_view part : components(path)) {
    if (part == ".")
      continue;
    const bool canClimb = !kept.empty() && kept.back() != "..";
    if (part == ".." && canClimb)
      kept.pop_back();
    else if (part != ".." || !absolute)
      kept.push_back(part);
  }
  return std::string(absolute ? "/" : "").append(joined(kept));
}

std::string expandingTilde(std::string_view path, std::string_view home) {
  if (path != "~" && !path.starts_with("~/"))
    return std::string(path);
  return std::string(home).append(path.substr(1));
}

bool hasParentSegment(std::string_view path) {
  for (std::string_view part : components(path))
    if (part == "..")
      return true;
  return false;
}

} // namespace tavrel
