#include "platform/linux/scripts/FileManagerSelection.h"

#include "base/Modifiers.h"
#include "base/PathString.h"
#include "platform/linux/scripts/ScriptKeys.h"

#include <QString>

namespace tavrel {

namespace {

constexpr KeyboardEvent letterC{'c', 8, KeyDirection::down};
constexpr std::uint16_t dvorakC = 34;

constexpr int mostPresses = 10;
constexpr int looksPerPress = 10;
constexpr double betweenLooks = 0.001;
constexpr double longestSelection = 0.3;

struct SavedPasteboard {
  std::vector<std::string> types;
  std::map<std::string, Bytes> data;
};

SavedPasteboard saved(Pasteboard& pasteboard) {
  SavedPasteboard contents{pasteboard.types(), {}};
  for (const std::string& type : contents.types)
    if (auto data = pasteboard.data(type))
      contents.data.emplace(type, *std::move(data));
  return contents;
}

void clear(Pasteboard& pasteboard) {
  pasteboard.declareTypes({pasteboardType::string});
  (void)pasteboard.setString("", pasteboardType::string);
}

void put(const SavedPasteboard& contents, Pasteboard& pasteboard) {
  pasteboard.declareTypes(contents.types);
  for (const std::string& type : contents.types)
    if (const auto data = contents.data.find(type); data != contents.data.end())
      (void)pasteboard.setData(data->second, type);
}

bool isInFront(ScriptDesktop& desktop, const std::string& role) {
  const auto front = desktop.applications.active();
  const std::string name =
      front && front->path ? deletingPathExtension(lastPathComponent(*front->path)) : std::string();
  return QString::fromStdString(name).compare(QString::fromStdString(role), Qt::CaseInsensitive) ==
         0;
}

bool pressCopy(ScriptDesktop& desktop) {
  KeyboardEvent key = letterC;
  if (desktop.keyboard.layoutIdentifier() == "com.apple.keylayout.Dvorak")
    key.keyCode = dvorakC;
  return pressInFront(desktop, {key, {keyCode::command}});
}

bool wasCleared(const SavedPasteboard& contents) {
  return contents.types == std::vector<std::string>{pasteboardType::string} &&
         contents.data.contains(pasteboardType::string) &&
         contents.data.at(pasteboardType::string).empty();
}

bool hasCopied(ScriptDesktop& desktop) {
  Pasteboard& general = desktop.pasteboards.general();
  const std::int64_t before = general.changeCount();
  const double end = desktop.clock.now() + longestSelection;
  for (int press = 0; press < mostPresses && desktop.clock.now() < end; ++press) {
    if (!pressCopy(desktop))
      return false;
    for (int look = 0; look < looksPerPress; ++look) {
      if (general.changeCount() != before)
        return true;
      desktop.clock.sleep(betweenLooks);
    }
  }
  return general.changeCount() != before;
}

std::vector<std::string> filesCopiedTo(Pasteboard& pasteboard) {
  const auto list = pasteboard.propertyList(pasteboardType::filenames);
  const PropertyList::Array* entries = list ? list->array() : nullptr;
  std::vector<std::string> paths;
  if (entries == nullptr)
    return paths;
  for (const PropertyList& entry : *entries)
    if (const std::string* path = entry.string())
      paths.push_back(*path);
  return paths;
}

} // namespace

std::vector<std::string> selectionOfFileManager(ScriptDesktop& desktop, const std::string& role) {
  if (!isInFront(desktop, role))
    return {};
  Pasteboard& general = desktop.pasteboards.general();
  const SavedPasteboard before = saved(general);
  clear(general); // else what is copied late in answer to an earlier keystroke would be undone
  const bool isCopied = hasCopied(desktop);
  const std::vector<std::string> paths = filesCopiedTo(general);
  if (wasCleared(before) && !isCopied)
    clear(general); // whoever cleared it for a capture leaves it with its owner still
  else
    put(before, general);
  return paths;
}

} // namespace tavrel
