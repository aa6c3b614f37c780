#include "base/Format.h"
#include "controller/TVController.h"
#include "menu/HidingRule.h"
#include "menu/ItemRecord.h"
#include "menu/MenuEdits.h"
#include "menu/MenuIcons.h"
#include "menu/PathHelpers.h"
#include "platform/Files.h"
#include "platform/Platform.h"
#include "platform/SystemLog.h"
#include "selection/PrivatePasteboard.h"

namespace tavrel {

namespace {

// Where addFixedTop (menu/MenuConstruction.cpp) puts them.
constexpr std::size_t selectedFolderIndex = 0;
constexpr std::size_t selectedFolderSeparatorIndex = 1;

PropertyList selectedFolderRecord(const std::string& folder) {
  return PropertyList::Dictionary{{TVR_MenuItemType, itemTypeName(ItemType::folder)},
                                  {TVR_MenuItemURL, fileUrlForPath(folder)},
                                  {TVR_MenuItemTree, PropertyList::Array{}}};
}

// The path as captured; nothing unless one folder or package alone is selected.
std::optional<std::string> singleSelectedFolder() {
  const auto files = isSelectionFiles() ? capturedFileList() : std::nullopt;
  if (!files || files->array()->size() != 1)
    return std::nullopt;
  const std::string* path = files->array()->front().string();
  if (!path || !path->starts_with('/') || isDirectory(*path, CleanPath::yes) == DirectoryKind::none)
    return std::nullopt;
  return *path;
}

void showSelectedFolder(MenuItem& entry, const std::string& path, MenuDelegate* delegate) {
  const std::string folder = cleanedUpPath(path);
  setMenuItemIcon(entry, path);
  entry.title = platform().files.displayName(path);
  entry.submenu = std::make_shared<Menu>(folder);
  entry.submenu->delegate = delegate;
  entry.enabled = true;
  entry.representedObject = selectedFolderRecord(folder);
}

// To be asked before a reason is put together.
bool isHidingExplained() {
  return platform().log.isDebugOn(LogArea::menu);
}

void explainHidden(const MenuItem& item, const std::string& reason) {
  platform().log.debug(LogArea::menu, filledInOrder("\"%@\" is hidden: %@", {item.title, reason}));
}

void fitSelectedFolder(Menu& menu, const std::optional<std::string>& path, MenuDelegate* delegate) {
  if (path && !menu.items.empty())
    showSelectedFolder(*menu.items[selectedFolderIndex], *path, delegate);
  hideMenuItem(menu, selectedFolderIndex, !path);
  hideMenuItem(menu, selectedFolderSeparatorIndex, !path);
}

void fitRecordEntry(MenuItem& item, const HostContext& host) {
  const PropertyList& record = *item.representedObject;
  const HidingRule rule = hidingRule(host, record);
  item.hidden = rule != HidingRule::none;
  if (item.hidden && isHidingExplained())
    explainHidden(item, hidingReason(rule, host.hostName, record));
}

void fitEntries(Menu& menu, std::size_t first, const HostContext& host,
                std::vector<Menu*>& groups) {
  for (std::size_t i = first; i < menu.items.size(); ++i) {
    MenuItem& item = *menu.items[i];
    if (!item.representedObject)
      continue;
    fitRecordEntry(item, host);
    if (itemType(*item.representedObject) == ItemType::group && item.submenu)
      groups.push_back(item.submenu.get());
  }
}

} // namespace

bool TVController::isHideItem(const PropertyList& item) const {
  return hidingRule(host_, item) != HidingRule::none;
}

void TVController::fitSelectedFolderEntry(Menu& menu) {
  const auto path = settings_.browseFolder ? singleSelectedFolder() : std::nullopt;
  fitSelectedFolder(menu, path, this);
  if (!path && !menu.items.empty() && isHidingExplained())
    explainHidden(*menu.items[selectedFolderIndex],
                  settings_.browseFolder ? "not one folder alone is selected"
                                         : "folders are not browsed by the settings");
}

void TVController::validateContextMenu(Menu& menu, const PropertyList::Array& /*array*/,
                                       int level) {
  validateSeparator(menu, 0);
  if (level == 0)
    fitSelectedFolderEntry(menu);
  // Groups are kept in a list, since recursion over a deep tree would overflow the stack.
  std::vector<Menu*> groups;
  fitEntries(menu, level == 0 ? selectedFolderSeparatorIndex + 1 : 0, host_, groups);
  while (!groups.empty()) {
    Menu& group = *groups.back();
    groups.pop_back();
    validateSeparator(group, 0);
    fitEntries(group, 0, host_, groups);
  }
}

} // namespace tavrel
