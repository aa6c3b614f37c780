#include "platform/linux/preferences/AutostartEntry.h"

#include "base/PathString.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <map>

namespace tavrel {

namespace {

namespace fs = std::filesystem;

constexpr const char* folderName = "autostart";

void addEntries(const std::string& folder, EntryOwner owner,
                std::map<std::string, AutostartEntry>& found) {
  std::error_code error;
  for (fs::directory_iterator each(folder, error), end; !error && each != end;
       each.increment(error)) {
    const std::string name = each->path().filename().string();
    if (!name.ends_with(".desktop") || found.contains(name))
      continue;
    if (auto entry = loadDesktopEntry(each->path().string()))
      found.insert({name, {name, each->path().string(), owner, *std::move(entry)}});
  }
}

bool isListed(const std::vector<std::string>& list, const std::vector<std::string>& desktops) {
  return std::ranges::any_of(list, [&](std::string each) {
    std::ranges::transform(each, each.begin(), [](unsigned char c) {
      return c >= 'A' && c <= 'Z' ? static_cast<char>(c | 0x20U) : static_cast<char>(c);
    });
    return std::ranges::find(desktops, each) != desktops.end();
  });
}

} // namespace

long AutostartEntry::order() const {
  const std::string text = entry.text(autostartKey::order);
  long number = 0;
  (void)std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

bool AutostartEntry::isStarted(const XdgFolders& xdg) const {
  const auto only = entry.onlyShowIn();
  return !entry.hidden() && (only.empty() || isListed(only, xdg.desktops)) &&
         !isListed(entry.notShowIn(), xdg.desktops);
}

std::string AutostartEntry::itemPath(const XdgFolders& xdg) const {
  if (isOurs())
    return entry.text(autostartKey::path);
  std::error_code ignored;
  for (const std::string& data : xdg.data)
    if (std::string path = appendingPathComponent(data, "applications/" + name);
        fs::is_regular_file(path, ignored))
      return path;
  return file;
}

std::vector<AutostartEntry> autostartEntries(const XdgFolders& xdg) {
  std::map<std::string, AutostartEntry> found;
  for (std::size_t i = 0; i < xdg.config.size(); ++i)
    addEntries(appendingPathComponent(xdg.config[i], folderName),
               i == 0 ? EntryOwner::user : EntryOwner::system, found);
  std::vector<AutostartEntry> entries;
  for (auto& [name, entry] : found)
    entries.push_back(std::move(entry));
  std::ranges::stable_sort(entries, {}, &AutostartEntry::order);
  return entries;
}

} // namespace tavrel
