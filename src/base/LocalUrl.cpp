#include "base/LocalUrl.h"

#include "base/Url.h"

#include <charconv>

namespace tavrel {

namespace {

std::string decodeEscapes(std::string_view text) {
  std::string bytes;
  for (std::size_t at = 0; at < text.size(); ++at)
    if (text[at] == '%') {
      unsigned char byte = 0;
      std::from_chars(text.data() + at + 1, text.data() + at + 3, byte, 16);
      bytes += static_cast<char>(byte);
      at += 2;
    } else {
      bytes += text[at];
    }
  return bytes;
}

} // namespace

std::optional<std::string> localPathOfUrl(std::string_view url) {
  if (!isUrl(url) || urlScheme(url) != "file")
    return std::nullopt;
  url.remove_prefix(std::string_view("file:").size());
  for (const std::string_view host : {"//localhost/", "///"})
    if (url.starts_with(host)) {
      url.remove_prefix(host.size() - 1);
      break;
    }
  if (!url.starts_with('/') || url.starts_with("//"))
    return std::nullopt;
  std::string path = decodeEscapes(url.substr(0, url.find_first_of("?#")));
  if (path.find('\0') != std::string::npos)
    return std::nullopt;
  while (path.size() > 1 && path.back() == '/')
    path.pop_back();
  return path;
}

} // namespace tavrel
