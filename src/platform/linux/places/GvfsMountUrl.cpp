#include "platform/linux/places/GvfsMountUrl.h"

#include <map>

namespace tavrel {

namespace {

using MountKeys = std::map<std::string, std::string, std::less<>>;

/// "key=value,key=value". The values are percent-encoded already, as a URL needs them.
MountKeys parseKeys(std::string_view text) {
  MountKeys keys;
  while (!text.empty()) {
    const std::string_view item = text.substr(0, text.find(','));
    const std::size_t equals = item.find('=');
    if (equals != std::string_view::npos)
      keys.emplace(item.substr(0, equals), item.substr(equals + 1));
    text.remove_prefix(std::min(item.size() + 1, text.size()));
  }
  return keys;
}

std::string valueOf(const MountKeys& keys, std::string_view key) {
  const auto found = keys.find(key);
  return found == keys.end() ? std::string() : found->second;
}

/// How the URL of a kind of mount is made: its scheme, and the keys whose values are host and
/// folder.
struct MountKind {
  std::string_view kind;
  std::string_view scheme;
  std::string_view hostKey;
  std::string_view folderKey;
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

std::string urlOf(const MountKind& kind, const MountKeys& keys) {
  const std::string user = valueOf(keys, "user");
  const std::string port = valueOf(keys, "port");
  std::string url(kind.scheme == "dav" && valueOf(keys, "ssl") == "true" ? "davs" : kind.scheme);
  url.append("://");
  if (!user.empty())
    url.append(user).append("@");
  url.append(valueOf(keys, kind.hostKey));
  if (!port.empty())
    url.append(":").append(port);
  url.append("/").append(kind.folderKey.empty() ? std::string() : valueOf(keys, kind.folderKey));
  return url;
}

} // namespace

std::optional<std::string> urlOfGvfsMount(std::string_view name) {
  const std::size_t colon = name.find(':');
  if (colon == std::string_view::npos)
    return std::nullopt;
  const MountKeys keys = parseKeys(name.substr(colon + 1));
  for (const MountKind& kind : mountKinds)
    if (kind.kind == name.substr(0, colon) && !valueOf(keys, kind.hostKey).empty())
      return urlOf(kind, keys);
  return std::nullopt;
}

} // namespace tavrel
