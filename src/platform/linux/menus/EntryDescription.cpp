#include "platform/linux/menus/EntryDescription.h"

namespace tavrel {

namespace {

constexpr EntryEffects movesFiles{.plain = ItemAction::moveSelectedFiles,
                                  .withoutFiles = ItemAction::moveSelectedFiles,
                                  .withCommand = ItemAction::moveSelectedFiles,
                                  .withOption = ItemAction::moveSelectedFiles};
constexpr EntryEffects movesFilesIfAny{.plain = ItemAction::moveSelectedFiles,
                                       .withoutFiles = ItemAction::openFolder,
                                       .withCommand = ItemAction::moveSelectedFiles,
                                       .withOption = ItemAction::moveSelectedFiles};

constexpr EntryEffects opensOrShows(ItemAction opening) {
  return {.plain = opening,
          .withoutFiles = opening,
          .withCommand = ItemAction::showInFinder,
          .withOption = opening};
}

constexpr EntryEffects comesToFront{.plain = ItemAction::bringToFront,
                                    .withoutFiles = ItemAction::bringToFront,
                                    .withCommand = ItemAction::showInFinder,
                                    .withOption = ItemAction::quit};

bool opensFileOrFolder(const EntryEffects& effects) {
  return effects == opensOrShows(ItemAction::openFile) ||
         effects == opensOrShows(ItemAction::openFolder);
}

std::string whatFileEntryDoes(const EntryEffects& effects, const Localize& localized) {
  if (effects == movesFilesIfAny)
    return localized("Moves the selected files into this folder; without any, opens it");
  return opensFileOrFolder(effects) ? localized("Opens the file; with Ctrl, shows it in its folder")
                                    : std::string();
}

std::string whatRecentItemDoes(const EntryEffects& effects, const Localize& localized) {
  if (effects.plain == ItemAction::openServer)
    return localized("Opens the server");
  return opensFileOrFolder(effects)
             ? localized("Opens the recent item; with Ctrl, shows it in its folder")
             : std::string();
}

// Effects that no sentence fits are left unsaid: silence rather than what is not so.
std::string whatChoosingDoes(const MenuItem& item, const Localize& localized) {
  switch (item.action) {
  case MenuAction::statusMenuDidSelected:
    return item.effects == movesFiles ? localized("Moves the selected files into this folder")
                                      : std::string();
  case MenuAction::fileItemDidSelected:
    return whatFileEntryDoes(item.effects, localized);
  case MenuAction::recentItemSelected:
    return whatRecentItemDoes(item.effects, localized);
  case MenuAction::processItemSelected:
    return item.effects == comesToFront
               ? localized("Comes to the front; with Alt, quits; with Ctrl, is shown in its folder")
               : std::string();
  case MenuAction::none:
  case MenuAction::openTavrelPref:
    return {};
  }
  return {};
}

std::string whatSubmenuDoes(const MenuItem& item, const Localize& localized) {
  return item.action == MenuAction::none
             ? localized("Opens a submenu")
             : localized("Opens the folder; its submenu lists what is inside");
}

} // namespace

std::string entryDescription(const MenuItem& item, const Localize& localized) {
  if (item.isSeparator || !item.enabled)
    return {};
  return item.submenu ? whatSubmenuDoes(item, localized) : whatChoosingDoes(item, localized);
}

} // namespace tavrel
