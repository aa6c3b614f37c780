#include "base/LocalUrl.h"

#include "base/PercentEscapes.h"
#include "base/Url.h"

namespace tavrel {

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
  std::string path = percentDecoded(url.substr(0, url.find_first_of("?#")));
  if (path.find('\0') != std::string::npos)
    return std::nullopt;
  while (path.size() > 1 && path.back() == '/')
    path.pop_back();
  return path;
}

} // namespace tavrel
