#include "platform/linux/preferences/Autostart.h"

#include "base/PathString.h"
#include "platform/linux/files/DesktopEntryEdit.h"
#include "platform/linux/preferences/AutostartEntry.h"
#include "platform/linux/system/BoundedFile.h"
#include "platform/linux/system/FileReplacement.h"

#include <QLoggingCategory>

#include <algorithm>
#include <filesystem>
#include <set>

namespace tavrel {

namespace {

namespace fs = std::filesystem;
Q_LOGGING_CATEGORY(autostartLog, "tavrel.autostart")

constexpr std::size_t largestEntry = std::size_t{1} << 20U;

struct LoginItem {
  std::string path;
  bool hide = false;
  friend bool operator<(const LoginItem& a, const LoginItem& b) { return a.path < b.path; }
};

LoginItem itemOf(const PropertyList& value) {
  const std::string* path = value.stringFor("Path");
  const PropertyList* hide = value.find("Hide");
  return {path ? *path : std::string(), hide && hide->boolean().value_or(false)};
}

std::string ownFile(const XdgFolders& folders, const std::string& name) {
  return appendingPathComponent(folders.config.front(), "autostart/" + name);
}

bool isDone(const std::string& file, const std::string& problem) {
  if (!problem.empty())
    qCWarning(autostartLog, "%s: %s", file.c_str(), problem.c_str());
  return problem.empty();
}

// A link would be written through, perhaps into the system's folder: the person's own file takes
// its place.
bool writeOwn(const XdgFolders& folders, const std::string& name, const std::string& text) {
  const std::string file = ownFile(folders, name);
  std::error_code ignored;
  const fs::path link = fs::read_symlink(file, ignored);
  if (!link.empty())
    fs::remove(file, ignored);
  const std::string problem = replaceFile(file, Bytes(text.begin(), text.end()));
  if (!problem.empty() && !link.empty())
    fs::create_symlink(link, file, ignored);
  return isDone(file, problem);
}

std::string textOf(const AutostartEntry& entry) {
  return readFile(entry.file, largestEntry).value_or(std::string());
}

bool stands(const XdgFolders& folders, const std::string& name) {
  std::error_code ignored;
  return std::any_of(folders.config.begin() + 1, folders.config.end(), [&](const auto& config) {
    return fs::exists(appendingPathComponent(config, "autostart/" + name), ignored);
  });
}

bool takeOut(const XdgFolders& folders, const AutostartEntry& entry) {
  if (!entry.isOurs() || entry.owner != EntryOwner::person || stands(folders, entry.name))
    return writeOwn(folders, entry.name, withEntryKey(textOf(entry), "Hidden", "true"));
  std::error_code error;
  fs::remove(entry.file, error);
  return isDone(entry.file, error ? error.message() : std::string());
}

std::string generatedText(const std::string& path) {
  std::error_code ignored;
  const auto mode = fs::status(path, ignored).permissions();
  const bool program =
      fs::is_regular_file(path, ignored) && (mode & fs::perms::owner_exec) != fs::perms::none;
  std::string text = "[Desktop Entry]\nType=Application\nName=";
  text.append(escapedEntryValue(deletingPathExtension(lastPathComponent(path)))).append("\nExec=");
  return text.append(program ? "" : "xdg-open ").append(quotedExecArgument(path)).append("\n");
}

std::string textFor(const std::string& path) {
  const auto text = path.ends_with(".desktop") ? readFile(path, largestEntry) : std::nullopt;
  return text && parseDesktopEntry(*text) ? *text : generatedText(path);
}

std::string marked(std::string text, const LoginItem& item, long order) {
  text = withEntryKey(std::move(text), "Hidden", std::nullopt);
  text = withEntryKey(std::move(text), autostartKey::path, escapedEntryValue(item.path));
  text =
      withEntryKey(std::move(text), autostartKey::hide, std::string(item.hide ? "true" : "false"));
  return withEntryKey(std::move(text), autostartKey::order, std::to_string(order));
}

// One of this name may start something else.
std::string freeName(const std::vector<AutostartEntry>& entries, const std::string& path) {
  const std::string base = deletingPathExtension(lastPathComponent(path));
  const auto isTaken = [&](const std::string& name) {
    return std::ranges::find(entries, name, &AutostartEntry::name) != entries.end();
  };
  std::string name = base + ".desktop";
  for (int number = 1; isTaken(name); ++number)
    name = base + "-" + std::to_string(number) + ".desktop";
  return name;
}

bool putIn(const XdgFolders& folders, const LoginItem& item) {
  const auto entries = autostartEntries(folders);
  const long order = entries.empty() ? 1 : std::max(entries.back().order(), 0L) + 1;
  for (const AutostartEntry& entry : entries)
    if (entry.entry.hidden() && entry.itemPath(folders) == item.path)
      return writeOwn(folders, entry.name, marked(textOf(entry), item, order));
  return writeOwn(folders, freeName(entries, item.path), marked(textFor(item.path), item, order));
}

bool changeHide(const XdgFolders& folders, const AutostartEntry& entry, bool hide) {
  if (entry.entry.boolean(autostartKey::hide) == hide)
    return true;
  return writeOwn(
      folders, entry.name,
      withEntryKey(textOf(entry), autostartKey::hide, std::string(hide ? "true" : "false")));
}

} // namespace

PropertyList::Array loginItems(const XdgFolders& folders) {
  PropertyList::Array items;
  for (const AutostartEntry& entry : autostartEntries(folders))
    if (entry.isOpened(folders))
      items.emplace_back(PropertyList::Dictionary{
          {"Path", entry.itemPath(folders)}, {"Hide", entry.entry.boolean(autostartKey::hide)}});
  return items;
}

bool setLoginItems(const XdgFolders& folders, const PropertyList::Array& items) {
  std::multiset<LoginItem> wanted;
  for (const PropertyList& item : items)
    wanted.insert(itemOf(item));
  bool done = !folders.config.empty();
  for (const AutostartEntry& entry : autostartEntries(folders)) {
    if (!entry.isOpened(folders))
      continue;
    const auto kept = wanted.find({entry.itemPath(folders), false});
    done &= kept == wanted.end() ? takeOut(folders, entry) : changeHide(folders, entry, kept->hide);
    if (kept != wanted.end())
      wanted.erase(kept);
  }
  for (const PropertyList& item : items)
    if (const auto missing = wanted.find(itemOf(item));
        missing != wanted.end() && !missing->path.empty()) {
      done &= putIn(folders, *missing);
      wanted.erase(missing);
    }
  return done;
}

} // namespace tavrel
