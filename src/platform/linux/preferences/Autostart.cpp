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

std::string userFile(const XdgFolders& xdg, const std::string& name) {
  return appendingPathComponent(xdg.config.front(), "autostart/" + name);
}

/// Logs a problem; true when there is none.
bool logProblem(const std::string& file, const std::string& problem) {
  if (!problem.empty())
    qCWarning(autostartLog, "%s: %s", file.c_str(), problem.c_str());
  return problem.empty();
}

// Replaces a symbolic link by a file: writing through the link could change a file of the system.
bool writeUserFile(const XdgFolders& xdg, const std::string& name, const std::string& text) {
  const std::string file = userFile(xdg, name);
  std::error_code ignored;
  const fs::path link = fs::read_symlink(file, ignored);
  if (!link.empty())
    fs::remove(file, ignored);
  const std::string problem = replaceFile(file, Bytes(text.begin(), text.end()));
  if (!problem.empty() && !link.empty())
    fs::create_symlink(link, file, ignored);
  return logProblem(file, problem);
}

std::string textOf(const AutostartEntry& entry) {
  return readFile(entry.file, largestEntry).value_or(std::string());
}

bool existsInSystemFolder(const XdgFolders& xdg, const std::string& name) {
  std::error_code ignored;
  return std::any_of(xdg.config.begin() + 1, xdg.config.end(), [&](const auto& config) {
    return fs::exists(appendingPathComponent(config, "autostart/" + name), ignored);
  });
}

bool removeItem(const XdgFolders& xdg, const AutostartEntry& entry) {
  if (!entry.isOurs() || entry.owner != EntryOwner::user || existsInSystemFolder(xdg, entry.name))
    return writeUserFile(xdg, entry.name, withEntryKey(textOf(entry), "Hidden", "true"));
  std::error_code error;
  fs::remove(entry.file, error);
  return logProblem(entry.file, error ? error.message() : std::string());
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

std::string withItemKeys(std::string text, const LoginItem& item, long order) {
  text = withEntryKey(std::move(text), "Hidden", std::nullopt);
  text = withEntryKey(std::move(text), autostartKey::path, escapedEntryValue(item.path));
  text =
      withEntryKey(std::move(text), autostartKey::hide, std::string(item.hide ? "true" : "false"));
  return withEntryKey(std::move(text), autostartKey::order, std::to_string(order));
}

// Another entry may have the name of the file, but start something else.
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

bool addItem(const XdgFolders& xdg, const LoginItem& item) {
  const auto entries = autostartEntries(xdg);
  const long order = entries.empty() ? 1 : std::max(entries.back().order(), 0L) + 1;
  for (const AutostartEntry& entry : entries)
    if (entry.entry.hidden() && entry.itemPath(xdg) == item.path)
      return writeUserFile(xdg, entry.name, withItemKeys(textOf(entry), item, order));
  return writeUserFile(xdg, freeName(entries, item.path),
                       withItemKeys(textFor(item.path), item, order));
}

bool changeHide(const XdgFolders& xdg, const AutostartEntry& entry, bool hide) {
  if (entry.entry.boolean(autostartKey::hide) == hide)
    return true;
  return writeUserFile(
      xdg, entry.name,
      withEntryKey(textOf(entry), autostartKey::hide, std::string(hide ? "true" : "false")));
}

} // namespace

PropertyList::Array loginItems(const XdgFolders& xdg) {
  PropertyList::Array items;
  for (const AutostartEntry& entry : autostartEntries(xdg))
    if (entry.isStarted(xdg))
      items.emplace_back(PropertyList::Dictionary{
          {"Path", entry.itemPath(xdg)}, {"Hide", entry.entry.boolean(autostartKey::hide)}});
  return items;
}

bool setLoginItems(const XdgFolders& xdg, const PropertyList::Array& items) {
  std::multiset<LoginItem> wanted;
  for (const PropertyList& item : items)
    wanted.insert(itemOf(item));
  bool done = !xdg.config.empty();
  for (const AutostartEntry& entry : autostartEntries(xdg)) {
    if (!entry.isStarted(xdg))
      continue;
    const auto kept = wanted.find({entry.itemPath(xdg), false});
    done &= kept == wanted.end() ? removeItem(xdg, entry) : changeHide(xdg, entry, kept->hide);
    if (kept != wanted.end())
      wanted.erase(kept);
  }
  for (const PropertyList& item : items)
    if (const auto missing = wanted.find(itemOf(item));
        missing != wanted.end() && !missing->path.empty()) {
      done &= addItem(xdg, *missing);
      wanted.erase(missing);
    }
  return done;
}

} // namespace tavrel
