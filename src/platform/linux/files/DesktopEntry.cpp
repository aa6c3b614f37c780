#include "platform/linux/files/DesktopEntry.h"

#include "platform/linux/system/BoundedFile.h"

#include <algorithm>
#include <cstdlib>

namespace tavrel {

namespace {
constexpr std::string_view mainGroup = "Desktop Entry";
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
constexpr std::size_t largestFile = std::size_t{1} << 20;

std::string_view trimmed(std::string_view text) {
  constexpr std::string_view blanks = " \t\r\f\v";
  const std::size_t first = text.find_first_not_of(blanks);
  if (first == std::string_view::npos)
    return {};
  return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

/// Reads lines one after another into the groups.
struct LineReader {
  DesktopEntry entry;
  DesktopEntry::Group* group = nullptr;

  void read(std::string_view line) {
    line = trimmed(line);
    if (line.empty() || line.front() == '#')
      return;
    if (line.front() == '[')
      openGroup(line);
    else
      addKey(line);
  }

private:
  void openGroup(std::string_view line) {
    const bool closed = line.back() == ']';
    group = closed ? &entry.groups[std::string(line.substr(1, line.size() - 2))] : nullptr;
  }

  void addKey(std::string_view line) {
    const std::size_t equals = line.find('=');
    if (!group || equals == std::string_view::npos)
      return;
    const std::string_view key = trimmed(line.substr(0, equals));
    if (!key.empty())
      group->insert_or_assign(std::string(key), std::string(trimmed(line.substr(equals + 1))));
  }
};

/// What a backslash and this character stand for; 0 for an unknown escape.
char escaped(char code) {
  switch (code) {
  case 's':
    return ' ';
  case 'n':
    return '\n';
  case 't':
    return '\t';
  case 'r':
    return '\r';
  case '\\':
  case ';':
    return code;
  default:
    return 0;
  }
}

std::string unescaped(std::string_view value) {
  std::string result;
  for (std::size_t i = 0; i < value.size(); ++i) {
    const char meant = value[i] == '\\' && i + 1 < value.size() ? escaped(value[i + 1]) : '\0';
    result += meant ? meant : value[i];
    i += meant ? 1 : 0;
  }
  return result;
}

std::vector<std::string> listItems(std::string_view value) {
  std::vector<std::string> items;
  std::size_t start = 0;
  for (std::size_t i = 0; i <= value.size(); ++i) {
    if (i < value.size() && value[i] == '\\')
      ++i;
    else if (i == value.size() || value[i] == ';') {
      if (i > start)
        items.push_back(unescaped(value.substr(start, i - start)));
      start = i + 1;
    }
  }
  if (start < value.size()) // it ended in a backslash
    items.push_back(unescaped(value.substr(start)));
  return items;
}

const std::string* find(const DesktopEntry& entry, std::string_view group, std::string_view key) {
  const auto found = entry.groups.find(group);
  if (found == entry.groups.end())
    return nullptr;
  const auto value = found->second.find(key);
  return value == found->second.end() ? nullptr : &value->second;
}

/// "sr_YU.UTF-8@Latn" as the names to look for: sr_YU@Latn, sr_YU, sr@Latn, sr.
std::vector<std::string> localeNames(std::string_view locale) {
  const std::string_view modifier = locale.substr(std::min(locale.find('@'), locale.size()));
  const std::string_view place = locale.substr(0, locale.find_first_of(".@"));
  const std::string_view language = place.substr(0, place.find('_'));
  std::vector<std::string> names;
  for (const std::string_view base : {place, language}) {
    if (!modifier.empty())
      names.push_back(std::string(base) + std::string(modifier));
    names.emplace_back(base);
  }
  return names;
}

std::string localized(const DesktopEntry& entry, std::string_view group, std::string_view key,
                      std::string_view locale) {
  for (const std::string& name : localeNames(locale)) {
    const std::string* value = find(entry, group, std::string(key) + '[' + name + ']');
    if (value)
      return unescaped(*value);
  }
  const std::string* value = find(entry, group, key);
  return value ? unescaped(*value) : std::string();
}

} // namespace

std::string DesktopEntry::name(std::string_view locale) const {
  return localized(*this, mainGroup, "Name", locale);
}

std::string DesktopEntry::icon(std::string_view locale) const {
  return localized(*this, mainGroup, "Icon", locale);
}

std::vector<DesktopAction> DesktopEntry::actions(std::string_view locale) const {
  std::vector<DesktopAction> result;
  for (std::string& id : list("Actions")) {
    const std::string group = "Desktop Action " + id;
    if (!groups.contains(group))
      continue;
    result.push_back({std::move(id), localized(*this, group, "Name", locale),
                      localized(*this, group, "Icon", locale),
                      localized(*this, group, "Exec", {})});
  }
  return result;
}

std::string DesktopEntry::text(std::string_view key) const {
  return localized(*this, mainGroup, key, {});
}

bool DesktopEntry::boolean(std::string_view key) const {
  const std::string* value = find(*this, mainGroup, key);
  return value && (*value == "true" || *value == "1"); // 1: as entries had it before 1.0
}

std::vector<std::string> DesktopEntry::list(std::string_view key) const {
  const std::string* value = find(*this, mainGroup, key);
  return value ? listItems(*value) : std::vector<std::string>();
}

std::optional<DesktopEntry> parseDesktopEntry(std::string_view text) {
  if (text.starts_with(byteOrderMark))
    text.remove_prefix(byteOrderMark.size());
  LineReader reader;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    reader.read(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  if (!reader.entry.groups.contains(mainGroup))
    return std::nullopt;
  return std::move(reader.entry);
}

std::optional<DesktopEntry> loadDesktopEntry(const std::string& path) {
  const auto text = readFile(path, largestFile);
  return text ? parseDesktopEntry(*text) : std::nullopt;
}

std::string messagesLocale() {
  for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"})
    if (const char* value = std::getenv(name); value && *value)
      return value;
  return {};
}

} // namespace tavrel
