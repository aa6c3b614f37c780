#include "menu/FolderContents.h"

#include "base/Modifiers.h"
#include "base/PathString.h"
#include "menu/FileVisibility.h"
#include "menu/NumericOrder.h"
#include "platform/Platform.h"

#include <algorithm>

namespace tavrel {

namespace {

MenuItem& addFileEntry(Menu& menu, const ListedFile& file, const std::string& path) {
  MenuItem& item = menu.add({.title = file.displayName});
  item.action = MenuAction::fileItemDidSelected;
  item.representedObject = path;
  return item;
}

void addMovingAlternate(Menu& menu, const ListedFile& file, const std::string& path,
                        const MenuBuild& build) {
  MenuItem& alternate = addFileEntry(menu, file, path);
  alternate.keyEquivalentModifierMask = modifier::option;
  alternate.isAlternate = true;
  setListedFileIcon(alternate, path, file.kind, build.images.move_badge_image);
}

void addListedFile(Menu& menu, const ListedFile& file, const std::string& path,
                   const MenuBuild& build) {
  MenuItem& item = addFileEntry(menu, file, path);
  setListedFileIcon(item, path, file.kind, std::nullopt);
  const DirectoryKind kind = directoryKind(file.kind);
  if (build.browseFolder) {
    if (!isBrowsable(kind, build))
      return;
    item.submenu = browsingSubmenu(path, build);
  }
  if (kind == DirectoryKind::folder)
    addMovingAlternate(menu, file, path, build);
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
  for (const std::size_t place : numericOrder(namesOf(files))) {
    const ListedFile& file = files[place];
    const std::string path = appendingPathComponent(folder, file.name);
    if (!file.invisible && !isHiddenSystemFile(path))
      addListedFile(menu, file, path, build);
  }
}

} // namespace tavrel
