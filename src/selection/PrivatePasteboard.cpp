#include "selection/PrivatePasteboard.h"

#include "platform/Platform.h"
#include "selection/PasteboardCopy.h"

#include <algorithm>

namespace tavrel {

Pasteboard& privatePasteboard() {
  return platform().pasteboards.named(TVRMenuPboardType);
}

std::optional<std::string> firstAvailableType(Pasteboard& pasteboard,
                                              const std::vector<std::string>& candidates) {
  const std::vector<std::string> offered = pasteboard.types();
  for (const std::string& type : candidates)
    if (std::find(offered.begin(), offered.end(), type) != offered.end())
      return type;
  return std::nullopt;
}

bool isConcealed(Pasteboard& pasteboard) {
  return firstAvailableType(pasteboard, {pasteboardType::concealed}).has_value();
}

void forgetConcealedSelection() {
  if (isConcealed(privatePasteboard()))
    clearPasteboard(privatePasteboard());
}

bool isSelectionFiles() {
  return firstAvailableType(privatePasteboard(),
                            {pasteboardType::filenames, pasteboardType::pathFinderFilenames})
      .has_value();
}

std::optional<PropertyList> capturedFileList() {
  Pasteboard& selection = privatePasteboard();
  auto list = selection.propertyList(pasteboardType::filenames);
  if (!list)
    list = selection.propertyList(pasteboardType::pathFinderFilenames);
  return list && list->array() ? list : std::nullopt;
}

std::optional<std::vector<std::string>> capturedFiles() {
  const auto list = capturedFileList();
  if (!list)
    return std::nullopt;
  std::vector<std::string> paths;
  for (const PropertyList& entry : *list->array())
    if (const std::string* path = entry.string())
      paths.push_back(*path);
  return paths;
}

} // namespace tavrel
