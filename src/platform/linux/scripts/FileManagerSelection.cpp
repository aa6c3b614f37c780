#include "platform/linux/scripts/FileManagerSelection.h"

#include "base/Modifiers.h"
#include "base/PathString.h"
#include "platform/linux/scripts/ScriptKeys.h"

#include <QString>

namespace tavrel {

namespace {

constexpr KeyboardEvent letterC{'c', 8, KeyDirection::down, KeyPurpose::copySelection};
constexpr std::uint16_t dvorakC = 34;

struct SavedPasteboard {
  std::vector<std::string> types;
  std::map<std::string, Bytes> data;
};

SavedPasteboard save(Pasteboard& pasteboard) {
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

void restore(const SavedPasteboard& contents, Pasteboard& pasteboard) {
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

bool isCleared(const SavedPasteboard& contents) {
  return contents.types == std::vector<std::string>{pasteboardType::string} &&
         contents.data.contains(pasteboardType::string) &&
         contents.data.at(pasteboardType::string).empty();
}

void makeItCopy(ScriptDesktop& desktop) {
  (void)pressCopy(desktop);
  desktop.clock.sleep(0); // for the desktop: a sleep after a copy may end early, here none follows
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
  const SavedPasteboard before = save(general);
  clear(general); // else a late copy, the answer to an earlier keystroke, would be undone
  makeItCopy(desktop);
  const std::vector<std::string> paths = filesCopiedTo(general);
  if (isCleared(before)) // restored, it would become an empty text of ours
    clear(general);
  else
    restore(before, general);
  return paths;
}

} // namespace tavrel
