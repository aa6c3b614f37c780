#include "platform/linux/places/MountedPlace.h"

#include <map>

namespace tavrel {

namespace {

using Details = std::map<std::string, std::string, std::less<>>;

/// "key=value,key=value"; the values stay escaped as they are, which suits a URL.
Details detailsOf(std::string_view text) {
  Details details;
  while (!text.empty()) {
    const std::string_view part = text.substr(0, text.find(','));
    const std::size_t equals = part.find('=');
    if (equals != std::string_view::npos)
      details.emplace(part.substr(0, equals), part.substr(equals + 1));
    text.remove_prefix(std::min(part.size() + 1, text.size()));
  }
  return details;
}

std::string detail(const Details& details, std::string_view key) {
  const auto found = details.find(key);
  return found == details.end() ? std::string() : found->second;
}

/// How a kind of mount names its scheme, its machine and its folder.
struct MountKind {
  std::string_view kind;
  std::string_view scheme;
  std::string_view host;
  std::string_view folder;
};
constexpr MountKind mountKinds[] = {
    {"sftp", "sftp", "host", ""},
    {"ftp", "ftp", "host", ""},
    {"ftps", "ftps", "host", ""},
    {"ftpis", "ftpis", "host", ""},
    {"smb-share", "smb", "server", "share"},
    {"smb-server", "smb", "server", ""},
    {"nfs", "nfs", "host", ""},
    {"dav", "dav", "host", ""},
    {"afp-volume", "afp", "host", "volume"},
    {"afp-server", "afp", "host", ""},
};

std::string urlOf(const MountKind& kind, const Details& details) {
  const std::string user = detail(details, "user");
  const std::string port = detail(details, "port");
  std::string url(kind.scheme == "dav" && detail(details, "ssl") == "true" ? "davs" : kind.scheme);
  url.append("://");
  if (!user.empty())
    url.append(user).append("@");
  url.append(detail(details, kind.host));
  if (!port.empty())
    url.append(":").append(port);
  url.append("/").append(kind.folder.empty() ? std::string() : detail(details, kind.folder));
  return url;
}

} // namespace

std::optional<std::string> urlOfMount(std::string_view name) {
  const std::size_t colon = name.find(':');
  if (colon == std::string_view::npos)
    return std::nullopt;
  const Details details = detailsOf(name.substr(colon + 1));
  for (const MountKind& kind : mountKinds)
    if (kind.kind == name.substr(0, colon) && !detail(details, kind.host).empty())
      return urlOf(kind, details);
  return std::nullopt;
}

} // namespace tavrel
