#include "platform/linux/applications/FileManagerRoles.h"

#include <algorithm>

namespace tavrel {

namespace {

bool isFileManager(const InstalledApplication& application) {
  const std::vector<std::string> categories = application.entry->categories();
  return std::ranges::find(categories, "FileManager") != categories.end();
}

} // namespace

std::vector<const InstalledApplication*> fileManagers(const ApplicationRegistry& registry) {
  std::vector<const InstalledApplication*> handlers = registry.handlersOf("inode/directory");
  std::vector<const InstalledApplication*> managers;
  const auto add = [&](const InstalledApplication* each) {
    if (std::ranges::find(managers, each) == managers.end())
      managers.push_back(each);
  };
  for (const InstalledApplication* each : handlers)
    if (managers.empty() || isFileManager(*each))
      add(each);
  for (const InstalledApplication& each : registry.applications())
    if (isFileManager(each) && !each.entry->noDisplay())
      add(&each);
  return managers;
}

std::string nameOf(FileManagerRole role) {
  return role == FileManagerRole::finder ? "Finder" : "Path Finder";
}

std::optional<FileManagerRole> roleOfEntry(const DesktopEntry& entry) {
  const std::string name = entry.text("X-Tavrel-Role");
  for (const FileManagerRole role : {FileManagerRole::finder, FileManagerRole::pathFinder})
    if (name == nameOf(role))
      return role;
  return std::nullopt;
}

const InstalledApplication* playerOf(FileManagerRole role,
                                     const std::vector<const InstalledApplication*>& managers) {
  const std::size_t place = role == FileManagerRole::finder ? 0 : 1;
  return place < managers.size() ? managers[place] : nullptr;
}

std::optional<FileManagerRole>
rolePlayedBy(const InstalledApplication& application,
             const std::vector<const InstalledApplication*>& managers) {
  const auto found = std::ranges::find(managers, &application);
  if (found == managers.end())
    return isFileManager(application) ? std::optional(FileManagerRole::finder) : std::nullopt;
  return found == managers.begin() + 1 ? FileManagerRole::pathFinder : FileManagerRole::finder;
}

} // namespace tavrel
