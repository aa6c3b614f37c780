#include "platform/linux/x11/clipboard/ClipboardContents.h"

#include "platform/Pasteboards.h"
#include "platform/linux/x11/clipboard/SelectionTarget.h"

#include <algorithm>
#include <cstring>

namespace tavrel {

namespace {
constexpr std::size_t zeroedBelow = 65536; // longer than any password
}

SharedBytes sharedBytes(Bytes bytes) {
  return {new Bytes(std::move(bytes)), [](Bytes* doomed) {
            if (doomed->size() < zeroedBelow)
              ::explicit_bzero(doomed->data(), doomed->size());
            delete doomed;
          }};
}

bool ClipboardContents::offers(const std::string& name) const {
  return std::find(names.begin(), names.end(), name) != names.end();
}

SharedBytes ClipboardContents::dataOf(const std::string& name) const {
  const auto found = data.find(name);
  return found == data.end() ? nullptr : found->second;
}

bool isCleared(const ClipboardContents& contents) {
  if (contents.names != std::vector<std::string>{pasteboardType::string})
    return false;
  const SharedBytes text = contents.dataOf(pasteboardType::string);
  return !text || text->empty();
}

bool leavesAsRead(const ClipboardContents& contents, const std::string& name, const Bytes& data) {
  if (!selectionTargetNamed(name) && hasSelectionTargets(contents.names))
    return true;
  const SharedBytes known = contents.dataOf(name);
  return known ? *known == data : data.empty();
}

} // namespace tavrel
