#include "controller/TVController.h"
#include "menu/ItemOffer.h"
#include "menu/ItemRecord.h"
#include "menu/MenuEntryState.h"
#include "menu/PathHelpers.h"
#include "platform/Files.h"
#include "platform/Platform.h"
#include "selection/PrivatePasteboard.h"

namespace tavrel {

namespace {

// Where building puts them in the whole menu.
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
  if (!path || !path->starts_with('/') || isDirectory(*path, CleanUp::first) == DirectoryKind::none)
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

void fitSelectedFolder(Menu& menu, const std::optional<std::string>& path, MenuDelegate* delegate) {
  if (path && !menu.items.empty())
    showSelectedFolder(*menu.items[selectedFolderIndex], *path, delegate);
  hideMenuItem(menu, selectedFolderIndex, !path);
  hideMenuItem(menu, selectedFolderSeparatorIndex, !path);
}

void fitEntries(Menu& menu, std::size_t first, const TVController& controller,
                std::vector<Menu*>& groups) {
  for (std::size_t i = first; i < menu.items.size(); ++i) {
    MenuItem& item = *menu.items[i];
    if (!item.representedObject)
      continue;
    item.hidden = controller.isHideItem(*item.representedObject);
    if (itemType(*item.representedObject) == ItemType::group && item.submenu)
      groups.push_back(item.submenu.get());
  }
}

} // namespace

bool TVController::isHideItem(const PropertyList& item) const {
  return !isOfferedIn(host_.hostName, item) || !isOfferedForSelection(item);
}

void TVController::validateContextMenu(Menu& menu, const PropertyList::Array& /*array*/,
                                       int level) {
  validateSeparator(menu, 0);
  if (level == 0)
    fitSelectedFolder(menu, settings_.browseFolder ? singleSelectedFolder() : std::nullopt, this);
  // Groups wait in a list, not on the stack: a tree may be of any depth.
  std::vector<Menu*> groups;
  fitEntries(menu, level == 0 ? selectedFolderSeparatorIndex + 1 : 0, *this, groups);
  while (!groups.empty()) {
    Menu& group = *groups.back();
    groups.pop_back();
    validateSeparator(group, 0);
    fitEntries(group, 0, *this, groups);
  }
}

} // namespace tavrel
