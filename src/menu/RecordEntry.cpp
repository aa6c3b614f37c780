#include "menu/RecordEntry.h"

#include "base/Modifiers.h"
#include "base/Numbers.h"
#include "controller/ProcessState.h"
#include "controller/SystemVersion.h"
#include "exec/ItemAction.h"
#include "menu/FolderContents.h"
#include "menu/ItemRecord.h"
#include "menu/PathHelpers.h"
#include "platform/Images.h"
#include "platform/Platform.h"

namespace tavrel {

namespace {

void setShortcut(MenuItem& item, const PropertyList& record) {
  const std::string* key = record.stringFor(TVR_MenuItemShortcutString);
  if (!key || key->empty())
    return;
  item.keyEquivalent = *key;
  const PropertyList* mask = record.find(TVR_MenuItemShortcutModifier);
  item.keyEquivalentModifierMask = mask ? uint32Value(*mask).value_or(0) : 0;
}

void setServiceIcon(MenuItem& item, const PropertyList& record, const MenuImages& images) {
  const std::string* provider = record.stringFor(TVR_MenuItemPath);
  if (hasBookmarks() && provider)
    item.image = serviceMenuIconForPath(*provider, images);
  else
    item.image = images.servicesIcon;
}

std::optional<Image> recordIcon(const PropertyList& record) {
  const Bytes* data = record.dataFor(TVR_MenuItemIcon);
  auto image = data ? platform().images.fromData(*data) : std::nullopt;
  return image ? std::optional(resized(*std::move(image), menuIconSize)) : std::nullopt;
}

void setUrlIcon(MenuItem& item, const PropertyList& record, const MenuImages& images) {
  item.image = record.dataFor(TVR_MenuItemIcon) ? recordIcon(record) : images.urlIcon;
}

void addFolderAlternate(Menu& menu, const PropertyList& record, const std::string& title,
                        const std::optional<std::string>& path, const MenuBuild& build) {
  MenuItem alternate;
  alternate.title = title;
  alternate.action = MenuAction::statusMenuDidSelected;
  alternate.representedObject = record;
  alternate.keyEquivalentModifierMask = modifier::option;
  alternate.isAlternate = true;
  alternate.hidden = true;
  alternate.effects =
      effectsOf(actionForItem, {.type = itemType(record), .alternate = true, .plainFolder = true});
  setMenuItemIconWithBadge(alternate, path, build.images.move_badge_image);
  menu.add(std::move(alternate));
}

// Whatever is no absolute path names no file: an entry must not depend on the folder that the
// application was started in.
DirectoryKind kindOf(const std::optional<std::string>& path) {
  return path && path->starts_with('/') ? isDirectory(*path, CleanPath::yes) : DirectoryKind::none;
}

void addFileParts(Menu& menu, MenuItem& item, const PropertyList& record, const MenuBuild& build) {
  const auto path = fullPathForItem(record);
  const std::string title = item.title; // the icon may leave a mark in it
  setMenuItemIcon(item, path);
  const DirectoryKind kind = kindOf(path);
  if (build.browseFolder) {
    if (!path || !isBrowsable(kind, build))
      return;
    item.submenu = browsingSubmenu(*path, build);
  }
  if (kind == DirectoryKind::folder)
    addFolderAlternate(menu, record, title, path, build);
}

} // namespace

std::optional<Image> serviceMenuIconForPath(const std::string& path, const MenuImages& images) {
  auto icon = platform().images.iconForFile(path);
  if (!icon)
    return std::nullopt;
  return badged(resized(*std::move(icon), menuIconSize), images.service_mark_image);
}

void addRecordEntry(Menu& menu, const PropertyList& record, const std::string& title,
                    const MenuBuild& build) {
  MenuItem& item = menu.add({.title = title});
  item.action = MenuAction::statusMenuDidSelected;
  item.representedObject = record;
  setShortcut(item, record);
  switch (itemType(record)) {
  case ItemType::services:
    return showIcon ? setServiceIcon(item, record, build.images)
                    : addFileParts(menu, item, record, build);
  case ItemType::url:
    return showIcon ? setUrlIcon(item, record, build.images)
                    : addFileParts(menu, item, record, build);
  case ItemType::unknown:
  case ItemType::application:
  case ItemType::documentFile:
  case ItemType::package:
  case ItemType::folder:
  case ItemType::appleScript:
  case ItemType::group:
  case ItemType::spacer:
    return addFileParts(menu, item, record, build);
  }
}

} // namespace tavrel
