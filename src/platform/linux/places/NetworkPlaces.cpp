#include "platform/linux/places/NetworkPlaces.h"

#include "base/PathString.h"
#include "base/Url.h"
#include "platform/linux/files/FileWithTimeout.h"
#include "platform/linux/files/FolderListings.h"
#include "platform/linux/places/GvfsMountUrl.h"
#include "platform/linux/places/RecentUsesFile.h"
#include "platform/linux/system/UserFolders.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <sstream>

namespace tavrel {

namespace {

constexpr std::size_t largestBookmarkList = std::size_t{1} << 20;
constexpr std::array<std::string_view, 13> networkSchemes{"sftp",  "ssh",  "smb",  "ftp", "ftps",
                                                          "ftpis", "dav",  "davs", "nfs", "afp",
                                                          "fish",  "http", "https"};

bool isNetworkUrl(const std::string& url) {
  return isUrl(url) && std::ranges::find(networkSchemes, urlScheme(url)) != networkSchemes.end();
}

/// The name of a place without a label: its last folder and its host, as file managers show it.
std::string placeName(const std::string& url) {
  const std::size_t start = url.find("://");
  std::string_view rest = std::string_view(url).substr(start == std::string::npos ? 0 : start + 3);
  const std::size_t slash = std::min(rest.find('/'), rest.size());
  std::string_view host = rest.substr(0, slash);
  host.remove_prefix(std::min(host.rfind('@') + 1, host.size()));
  const std::string folder = lastPathComponent(pathOfUrl(url).value_or(""));
  const bool top = folder.empty() || folder == "/";
  return top ? std::string(host) : folder + " on " + std::string(host);
}

void addPlace(std::vector<NetworkPlace>& places, const std::string& name, const std::string& url) {
  const std::string withoutSlash = url.ends_with('/') ? url.substr(0, url.size() - 1) : url;
  const bool isListed = std::ranges::any_of(places, [&](const NetworkPlace& each) {
    return each.url == withoutSlash || each.url == withoutSlash + '/';
  });
  if (!isListed && isNetworkUrl(url))
    places.push_back({name.empty() ? placeName(url) : name, url});
}

void addServers(std::vector<NetworkPlace>& places) {
  for (const RecentUse& use : readRecentUses(preferenceFolder() + "/gtk-3.0/servers"))
    if (!use.isPrivate)
      addPlace(places, use.title, use.url);
}

/// With a timeout, for the server of a mount may not answer any more.
void addMounts(std::vector<NetworkPlace>& places) {
  const char* runtime = std::getenv("XDG_RUNTIME_DIR");
  if (runtime == nullptr || *runtime != '/')
    return;
  static FolderListings listings{std::chrono::seconds(1)};
  for (const ListedFile& mount : listings.browse(std::string(runtime) + "/gvfs"))
    if (const auto url = urlOfGvfsMount(mount.name))
      addPlace(places, {}, *url);
}

/// Each line holds a URL and perhaps, after a blank, a label.
void addBookmarks(std::vector<NetworkPlace>& places) {
  std::istringstream lines(
      readFileWithTimeout(preferenceFolder() + "/gtk-3.0/bookmarks", largestBookmarkList)
          .value_or(""));
  for (std::string line; std::getline(lines, line);) {
    const std::size_t blank = std::min(line.find(' '), line.size());
    const std::string label = blank < line.size() ? line.substr(blank + 1) : std::string();
    addPlace(places, label, line.substr(0, blank));
  }
}

} // namespace

std::vector<NetworkPlace> networkPlaces() {
  std::vector<NetworkPlace> places;
  addServers(places);
  addMounts(places);
  addBookmarks(places);
  return places;
}

std::optional<std::string> networkPlaceOfVolume(const std::string& path) {
  if (!path.starts_with("/Volumes/"))
    return std::nullopt;
  for (const NetworkPlace& place : networkPlaces())
    if (path == "/Volumes/" + place.name + "/")
      return place.url;
  return std::nullopt;
}

} // namespace tavrel
