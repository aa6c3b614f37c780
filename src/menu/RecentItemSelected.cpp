#include "base/Format.h"
#include "base/LocalUrl.h"
#include "controller/SystemVersion.h"
#include "controller/TVController.h"
#include "exec/FileActions.h"
#include "invoke/KeyState.h"
#include "platform/Files.h"
#include "platform/Platform.h"
#include "platform/Workspace.h"

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

} // namespace

void TVController::recentItemSelected(MenuItem& menuItem) {
  const Bytes* data = dataOf(menuItem);
  if (!data && hasBookmarks())
    platform().workspace.openFile(filled("/Volumes/%@/", menuItem.title));
  const auto path = data ? recentFile(*data) : std::nullopt;
  if (!path)
    return;
  if (CheckCommandKey())
    showInFinder(*path);
  else
    platform().workspace.openFile(*path);
}

} // namespace tavrel
