#include "base/Url.h"

#include "base/Ascii.h"
#include "base/PercentEscapes.h"
#include "base/Utf8.h"

#include <cstdint>

namespace tavrel {

namespace {

bool isUrlCharacter(char c) {
  return isLetter(c) || isDigit(c) ||
         std::string_view("-._~:/?#[]@!$&'()*+,;=").find(c) != std::string_view::npos;
}

std::size_t schemeLength(std::string_view url) {
  if (url.empty() || !isLetter(url[0]))
    return 0;
  for (std::size_t i = 1; i < url.size(); ++i) {
    if (url[i] == ':')
      return i;
    if (!isLetter(url[i]) && !isDigit(url[i]) && url[i] != '+' && url[i] != '-' && url[i] != '.')
      return 0;
  }
  return 0;
}

// What stands behind the scheme and the authority, without query and fragment.
std::string_view rawPath(std::string_view rest) {
  if (rest.starts_with("//")) {
    rest.remove_prefix(2);
    const std::size_t end = rest.find_first_of("/?#");
    rest.remove_prefix(end == std::string_view::npos ? rest.size() : end);
  }
  return rest.substr(0, rest.find_first_of("?#"));
}

bool staysInFileUrl(char c) {
  return isLetter(c) || isDigit(c) ||
         std::string_view("/-._~&=+,@:!$'()*").find(c) != std::string_view::npos;
}

} // namespace

bool isUrl(std::string_view text) {
  if (text.empty())
    return false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (isUrlCharacter(text[i]))
      continue;
    if (!startsWithEscape(text.substr(i)))
      return false;
    i += 2;
  }
  return true;
}

std::string urlScheme(std::string_view url) {
  std::string scheme(url.substr(0, schemeLength(url)));
  for (char& c : scheme)
    if (isLetter(c))
      c = static_cast<char>(c | 0x20);
  return scheme;
}

std::optional<std::string> pathOfUrl(std::string_view url) {
  if (!isUrl(url))
    return std::nullopt;
  const std::size_t scheme = schemeLength(url);
  const std::string_view rest = scheme == 0 ? url : url.substr(scheme + 1);
  if (scheme != 0 && !rest.starts_with('/'))
    return std::nullopt;
  std::string path = percentDecoded(rawPath(rest));
  if (!isUtf8(path))
    return std::nullopt;
  if (path.size() > 1 && path.back() == '/')
    path.pop_back();
  return path;
}

std::string fileUrlOfPath(std::string_view path, PathIs what) {
  constexpr char digits[] = "0123456789ABCDEF";
  std::string url = "file://";
  for (char c : path) {
    const auto byte = static_cast<std::uint8_t>(c);
    if (staysInFileUrl(c))
      url += c;
    else
      url.append({'%', digits[byte >> 4], digits[byte & 15]});
  }
  if (what == PathIs::directory && url.back() != '/')
    url += '/';
  return url;
}

} // namespace tavrel
