#include "base/Format.h"
#include "base/LocalUrl.h"
#include "controller/SystemVersion.h"
#include "controller/TVController.h"
#include "exec/ItemAction.h"
#include "exec/PerformAction.h"
#include "invoke/KeyState.h"
#include "platform/Files.h"
#include "platform/Platform.h"

namespace tavrel {

namespace {

const Bytes* dataOf(const MenuItem& item) {
  return item.representedObject ? item.representedObject->data() : nullptr;
}

// Where a bookmark leads now, if that is a file.
std::optional<std::string> bookmarkedFile(const Bytes& bookmark) {
  const auto url = platform().files.resolveBookmark(bookmark, BookmarkResolution::withoutInterface);
  return url ? localPathOfUrl(*url) : std::nullopt;
}

std::optional<std::string> recentFile(const Bytes& data) {
  return hasBookmarks()
             ? bookmarkedFile(data)
             : platform().files.resolveAliasRecord(data, AliasResolution::fileIdentifierFirst);
}

std::optional<std::string> serverVolume(const std::string& name) {
  return hasBookmarks() ? std::optional(filled("/Volumes/%@/", name)) : std::nullopt;
}

} // namespace

void TVController::recentItemSelected(MenuItem& menuItem) {
  const Bytes* data = dataOf(menuItem);
  const auto path = data ? recentFile(*data) : serverVolume(menuItem.title);
  if (!path)
    return;
  const ItemChoice choice{.commandHeld = CheckCommandKey(), .isServer = data == nullptr};
  perform(actionForRecentItem(choice), {.path = *path}, *this);
}

} // namespace tavrel
