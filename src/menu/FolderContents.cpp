#include "menu/FolderContents.h"

#include "base/Modifiers.h"
#include "base/PathString.h"
#include "controller/SettingsNow.h"
#include "exec/ItemAction.h"
#include "menu/FileVisibility.h"
#include "menu/NumericOrder.h"
#include "platform/Platform.h"

#include <algorithm>

namespace tavrel {

namespace {

// What choosing the entries of a folder does. To ask each file for its type would take too long:
// a script or an application counts as a document, which does the same as far as it is told.
struct ListingEffects {
  EntryEffects file;
  EntryEffects folder;
  EntryEffects movingAlternate;
};

ListingEffects listingEffects() {
  ItemChoice folder{.type = ItemType::folder};
  folder.terminalWithCommand = settingsNow::openTerminalWithCmdKey();
  ItemChoice alternate = folder;
  alternate.alternate = true;
  return {effectsOf(actionForBrowsedFile, {.type = ItemType::documentFile}),
          effectsOf(actionForBrowsedFile, folder), effectsOf(actionForBrowsedFile, alternate)};
}

struct Listing {
  Menu& menu;
  const MenuBuild& build;
  ListingEffects effects = listingEffects();
};

MenuItem& addFileEntry(Menu& menu, const ListedFile& file, const std::string& path) {
  MenuItem& item = menu.add({.title = file.displayName});
  item.action = MenuAction::fileItemDidSelected;
  item.representedObject = path;
  return item;
}

void addMovingAlternate(const Listing& listing, const ListedFile& file, const std::string& path) {
  MenuItem& alternate = addFileEntry(listing.menu, file, path);
  alternate.keyEquivalentModifierMask = modifier::option;
  alternate.isAlternate = true;
  alternate.effects = listing.effects.movingAlternate;
  setListedFileIcon(alternate, path, file.kind, listing.build.images.move_badge_image);
}

void addListedFile(const Listing& listing, const ListedFile& file, const std::string& path) {
  MenuItem& item = addFileEntry(listing.menu, file, path);
  setListedFileIcon(item, path, file.kind, std::nullopt);
  const DirectoryKind kind = directoryKind(file.kind);
  item.effects = kind == DirectoryKind::folder ? listing.effects.folder : listing.effects.file;
  if (listing.build.browseFolder) {
    if (!isBrowsable(kind, listing.build))
      return;
    item.submenu = browsingSubmenu(path, listing.build);
  }
  if (kind == DirectoryKind::folder)
    addMovingAlternate(listing, file, path);
}

std::vector<std::string_view> namesOf(const std::vector<ListedFile>& files) {
  std::vector<std::string_view> names;
  names.reserve(files.size());
  for (const ListedFile& file : files)
    names.emplace_back(file.name);
  return names;
}

} // namespace

bool isBrowsable(DirectoryKind kind, const MenuBuild& build) {
  return kind == DirectoryKind::folder || (kind == DirectoryKind::package && build.browsePackage);
}

std::shared_ptr<Menu> browsingSubmenu(const std::string& path, const MenuBuild& build) {
  auto submenu = std::make_shared<Menu>(path);
  submenu->delegate = build.delegate;
  return submenu;
}

void addFolderContents(Menu& menu, const std::string& folder, const MenuBuild& build) {
  const std::vector<ListedFile> files = platform().files.browse(folder, visibilityLink());
  menu.items.reserve(files.size());
  const Listing listing{menu, build};
  for (const std::size_t place : numericOrder(namesOf(files))) {
    const ListedFile& file = files[place];
    const std::string path = appendingPathComponent(folder, file.name);
    if (!file.invisible && !isHiddenSystemFile(path))
      addListedFile(listing, file, path);
  }
}

} // namespace tavrel
