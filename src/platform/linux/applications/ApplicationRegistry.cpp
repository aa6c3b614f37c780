#include "platform/linux/applications/ApplicationRegistry.h"

#include "platform/linux/applications/ApplicationNames.h"
#include "platform/linux/files/FileWithTimeout.h"
#include "platform/linux/files/MountHealth.h"

#include <algorithm>
#include <filesystem>
#include <sys/stat.h>

namespace tavrel {

namespace fs = std::filesystem;

namespace {

constexpr int deepestFolder = 8; // menus of desktops nest two deep at most
constexpr std::size_t largestList = std::size_t{1} << 20;

/// Other machines' folders are no part of the one that is looked through. What is a folder is known
/// from the listing, without a look at it.
bool isBarred(const fs::recursive_directory_iterator& at) {
  std::error_code ignored;
  const bool folder = !at->is_symlink(ignored) && at->is_directory(ignored);
  return folder && (at.depth() >= deepestFolder ||
                    doubtfulMountOf(at->path().string(), FinalLink::keep).has_value());
}

std::vector<std::string> entriesUnder(const std::string& folder) {
  std::vector<std::string> result;
  std::error_code error;
  fs::recursive_directory_iterator at(folder, fs::directory_options::skip_permission_denied,
                                      error); // follows no links: those may lead anywhere
  for (; !error && at != fs::recursive_directory_iterator(); at.increment(error)) {
    if (isBarred(at))
      at.disable_recursion_pending();
    if (at->path().extension() == ".desktop")
      result.push_back(at->path().string());
  }
  std::ranges::sort(result);
  return result;
}

std::string idOf(const std::string& folder, const std::string& path) {
  std::string id = path.substr(folder.size() + 1);
  std::ranges::replace(id, '/', '-');
  return id;
}

bool contains(const std::vector<std::string>& list, std::string_view what) {
  return std::ranges::find(list, what) != list.end();
}

const std::vector<std::string>& idsFor(const MimeAppsList::Choices& all, std::string_view type) {
  static const std::vector<std::string> none;
  const auto found = all.find(type);
  return found == all.end() ? none : found->second;
}

std::vector<std::string> entriesIn(const std::string& folder) {
  return askWithTimeout(folder, FinalLink::follow, std::vector<std::string>(),
                        [folder] { return entriesUnder(folder); });
}

} // namespace

void ApplicationRegistry::refresh() {
  applications_.clear();
  byId_.clear();
  names_.clear();
  Cache current;
  for (std::size_t index = 0; index < xdg_.data.size(); ++index)
    readFolder(index, current);
  cache_ = std::move(current);
  for (const InstalledApplication& application : applications_)
    byId_[application.id] = &application;
  readLists();
}

std::optional<ApplicationRegistry::Stamp> ApplicationRegistry::stampNow(const std::string& path) {
  struct stat status = {};
  if (::stat(path.c_str(), &status) != 0)
    return std::nullopt;
  return Stamp{status.st_ino, status.st_size,
               status.st_mtim.tv_sec * 1'000'000'000 + status.st_mtim.tv_nsec};
}

ApplicationRegistry::CachedEntry ApplicationRegistry::readEntry(const std::string& path) const {
  const auto stamp = askWithTimeout(path, FinalLink::follow, std::optional<Stamp>(),
                                    [path] { return stampNow(path); });
  if (!stamp)
    return {};
  const auto known = cache_.find(path);
  if (known != cache_.end() && known->second.stamp == *stamp)
    return known->second;
  std::optional<DesktopEntry> entry = loadEntryWithTimeout(path);
  if (!entry || entry->type() != "Application")
    return {*stamp, nullptr};
  return {*stamp, std::make_shared<const DesktopEntry>(std::move(*entry))};
}

void ApplicationRegistry::readFolder(std::size_t dataFolder, Cache& current) {
  const std::string folder = xdg_.data[dataFolder] + "/applications";
  for (const std::string& path : entriesIn(folder)) {
    const CachedEntry& cached = current[path] = readEntry(path);
    const std::string id = idOf(folder, path);
    if (cached.entry && byId_.try_emplace(id, nullptr).second && !cached.entry->hidden())
      applications_.push_back({id, path, cached.entry, dataFolder});
  }
}

void ApplicationRegistry::readLists() {
  lists_.clear();
  for (MimeAppsFile& file : mimeAppsFiles(xdg_))
    if (const auto text = readFileWithTimeout(file.path, largestList))
      lists_.emplace_back(std::move(file), parseMimeAppsList(*text));
}

const InstalledApplication* ApplicationRegistry::find(std::string_view id) const {
  const auto found = byId_.find(id);
  return found == byId_.end() ? nullptr : found->second;
}

bool ApplicationRegistry::isName(const std::string& name) const {
  if (names_.empty())
    for (const InstalledApplication& each : applications_)
      for (const std::string& one :
           {each.id, stemOf(each), each.entry->name(messagesLocale()), each.entry->name()})
        names_.insert(one);
  return names_.contains(name);
}

std::vector<const InstalledApplication*>
ApplicationRegistry::handlersOf(std::string_view mimeType) const {
  std::vector<const InstalledApplication*> handlers;
  std::set<std::string, std::less<>> removed;
  const auto add = [&](const InstalledApplication* application) {
    if (application != nullptr && std::ranges::find(handlers, application) == handlers.end())
      handlers.push_back(application);
  };
  for (const auto& [file, list] : lists_)
    for (const std::string& id : idsFor(list.defaults, mimeType))
      add(find(id));
  // An association that one list removes is not taken from less important lists and folders.
  const auto addFromList = [&](const MimeAppsList& list) {
    for (const std::string& id : idsFor(list.added, mimeType))
      if (!removed.contains(id))
        add(find(id));
    const std::vector<std::string>& gone = idsFor(list.removed, mimeType);
    removed.insert(gone.begin(), gone.end());
  };
  for (std::size_t folder = 0; folder < xdg_.data.size(); ++folder) {
    for (const auto& [file, list] : lists_)
      if (file.dataFolder == folder && !file.desktopSpecific)
        addFromList(list);
    for (const InstalledApplication& application : applications_)
      if (application.dataFolder == folder && !removed.contains(application.id) &&
          contains(application.entry->mimeTypes(), mimeType))
        add(&application);
  }
  return handlers;
}

} // namespace tavrel
