#include "platform/linux/files/LinkEntry.h"

#include "base/PercentEscapes.h"

namespace tavrel {

namespace {
constexpr std::string_view fileScheme = "file:";
constexpr std::string_view localhost = "localhost/";

/// The path of a file URL, still encoded; empty for a URL of another machine.
std::string_view encodedPath(std::string_view url) {
  url.remove_prefix(fileScheme.size());
  if (!url.starts_with("//"))
    return url;
  url.remove_prefix(2);
  if (url.starts_with(localhost))
    url.remove_prefix(localhost.size() - 1);
  return url.starts_with('/') ? url : std::string_view();
}

} // namespace

bool hasEntryEnding(std::string_view path) {
  return path.ends_with(".desktop");
}

std::optional<std::string> linkTarget(const DesktopEntry& entry) {
  const std::string url = entry.type() == "Link" ? entry.url() : std::string();
  if (url.starts_with('/'))
    return url; // not a URL, but in common use
  if (!url.starts_with(fileScheme))
    return std::nullopt;
  const std::string path = percentDecoded(encodedPath(url));
  const bool usable = path.starts_with('/') && path.find('\0') == std::string::npos;
  return usable ? std::optional(path) : std::nullopt;
}

} // namespace tavrel
