#include "platform/linux/preferences/RecentItemsView.h"

#include "base/LocalUrl.h"
#include "base/PathString.h"
#include "platform/linux/applications/ApplicationRegistry.h"
#include "platform/linux/files/DesktopEntry.h"
#include "platform/linux/files/FileBookmark.h"
#include "platform/linux/places/NetworkPlaces.h"
#include "platform/linux/places/RecentUsesFile.h"
#include "platform/linux/system/UserFolders.h"

#include <algorithm>
#include <cstdlib>
#include <set>

namespace tavrel {

namespace {

constexpr std::size_t mostRecent = 10;

std::string recentlyUsedFile() {
  const char* data = std::getenv("XDG_DATA_HOME");
  return (data && *data == '/' ? std::string(data) : homeFolder() + "/.local/share") +
         "/recently-used.xbel";
}

PropertyList recentFile(const std::string& name, const std::string& path) {
  const BookmarkedIdentity identity = fileIdentity(path).value_or(BookmarkedIdentity{});
  return PropertyList::Dictionary{{"Name", name}, {"Bookmark", bookmarkData({identity, path})}};
}

PropertyList::Array recentDocuments(const std::vector<RecentUse>& uses) {
  PropertyList::Array items;
  std::set<std::string> listed;
  for (const RecentUse& use : uses) {
    const auto path = use.isPrivate ? std::nullopt : localPathOfUrl(use.url);
    if (path && items.size() < mostRecent && listed.insert(*path).second)
      items.push_back(recentFile(lastPathComponent(*path), *path));
  }
  return items;
}

/// The uses by applications, newest first, each name and command line once. Which installed
/// application is meant takes long to find out, so that is left for the few that are listed.
std::vector<RecentApplicationUse> applicationUses(const std::vector<RecentUse>& uses) {
  std::vector<RecentApplicationUse> all;
  for (const RecentUse& use : uses)
    if (!use.isPrivate)
      all.insert(all.end(), use.applications.begin(), use.applications.end());
  std::ranges::stable_sort(all, std::ranges::greater(), &RecentApplicationUse::when);
  std::set<std::pair<std::string_view, std::string_view>> known;
  std::vector<RecentApplicationUse> first;
  for (const RecentApplicationUse& use : all)
    if (known.emplace(use.name, use.exec).second)
      first.push_back(use);
  return first;
}

/// The name of the program in a command line such as "'/usr/bin/gedit' %u".
std::string programOf(std::string_view exec) {
  constexpr std::string_view around = "'\" ";
  exec.remove_prefix(std::min(exec.find_first_not_of(around), exec.size()));
  return lastPathComponent(exec.substr(0, exec.find_first_of(around)));
}

bool takesFiles(const std::string& exec) {
  for (const char* code : {"%f", "%F", "%u", "%U"})
    if (exec.find(code) != std::string::npos)
      return true;
  return false;
}

/// How well an entry matches an application; 0: not at all. Several entries may start the same
/// program, as one for its settings.
int matchScore(const InstalledApplication& application, const RecentApplicationUse& use) {
  const std::string program = programOf(use.exec);
  const std::string id = deletingPathExtension(application.id);
  const std::string exec = application.entry->exec();
  if (id == use.name || application.entry->name() == use.name)
    return 4;
  if (program.empty() || (id != program && programOf(exec) != program))
    return 0;
  return application.entry->noDisplay() ? 1 : takesFiles(exec) ? 3 : 2;
}

const InstalledApplication* applicationOfUse(const RecentApplicationUse& use,
                                             const std::vector<InstalledApplication>& installed) {
  const auto found = std::ranges::max_element(
      installed, {}, [&](const InstalledApplication& each) { return matchScore(each, use); });
  return found != installed.end() && matchScore(*found, use) > 0 ? &*found : nullptr;
}

PropertyList::Array recentApplications(const std::vector<RecentUse>& uses,
                                       ApplicationRegistry& registry) {
  PropertyList::Array items;
  std::set<std::string> listed;
  registry.refresh();
  for (const RecentApplicationUse& use : applicationUses(uses)) {
    const InstalledApplication* found =
        items.size() < mostRecent ? applicationOfUse(use, registry.applications()) : nullptr;
    if (found && listed.insert(found->path).second)
      items.push_back(recentFile(found->entry->name(messagesLocale()), found->path));
  }
  return items;
}

PropertyList::Array recentServers() {
  PropertyList::Array items;
  for (const NetworkPlace& place : networkPlaces())
    if (items.size() < mostRecent)
      items.push_back(PropertyList::Dictionary{
          {"Name", place.name}, {"Alias", Bytes(place.url.begin(), place.url.end())}});
  return items;
}

PropertyList customList(PropertyList::Array items) {
  return PropertyList::Dictionary{{"CustomListItems", std::move(items)}};
}

} // namespace

PropertyList::Dictionary recentItems(ApplicationRegistry& registry, CachedRecentUses& recentUses) {
  const std::vector<RecentUse>& uses = recentUses.read(recentlyUsedFile());
  return {{"RecentApplications", customList(recentApplications(uses, registry))},
          {"RecentDocuments", customList(recentDocuments(uses))},
          {"RecentServers", customList(recentServers())}};
}

} // namespace tavrel
