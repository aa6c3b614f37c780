#include "platform/linux/files/LinkEntry.h"

#include <cctype>

namespace tavrel {

namespace {
constexpr std::string_view fileScheme = "file:";
constexpr std::string_view localhost = "localhost/";

std::optional<char> escapedByte(std::string_view digits) {
  const auto isHex = [](char c) { return std::isxdigit(static_cast<unsigned char>(c)) != 0; };
  if (digits.size() < 2 || !isHex(digits[0]) || !isHex(digits[1]))
    return std::nullopt;
  return static_cast<char>(std::stoi(std::string(digits.substr(0, 2)), nullptr, 16));
}

/// Any bytes may come out, as file names may hold any; a broken escape stays as written.
std::string percentDecoded(std::string_view text) {
  std::string result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto byte = text[i] == '%' ? escapedByte(text.substr(i + 1)) : std::nullopt;
    result += byte.value_or(text[i]);
    i += byte ? 2 : 0;
  }
  return result;
}

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
