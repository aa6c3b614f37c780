#include "selection/PasteboardCopy.h"

#include "platform/Platform.h"
#include "selection/PrivatePasteboard.h"

#include <utility>

namespace tavrel {

namespace {

void copyContents(Pasteboard& source, Pasteboard& destination) {
  const std::vector<std::string> types = source.types();
  destination.declareTypes(types);
  for (const std::string& type : types)
    if (auto data = source.data(type))
      destination.setData(*std::move(data), type);
}

Pasteboard& backupPasteboard() {
  return platform().pasteboards.named(TVRBackupPboard);
}

} // namespace

void copyPasteboard(Pasteboard& source, Pasteboard& destination) {
  clearPasteboard(destination);
  copyContents(source, destination);
}

void captureGeneralPasteboard() {
  copyPasteboard(platform().pasteboards.general(), privatePasteboard());
  if (privatePasteboard().types().empty())
    clearPasteboard(privatePasteboard());
}

void clearPasteboard(Pasteboard& pasteboard) {
  pasteboard.declareTypes({pasteboardType::string});
  pasteboard.setString("", pasteboardType::string);
}

void backUpGeneralPasteboard() {
  copyPasteboard(platform().pasteboards.general(), backupPasteboard());
}

void restoreGeneralPasteboard() {
  copyPasteboard(backupPasteboard(), platform().pasteboards.general());
  clearPasteboard(backupPasteboard());
}

void copyPrivateToGeneralPasteboard() {
  copyContents(privatePasteboard(), platform().pasteboards.general());
}

} // namespace tavrel
