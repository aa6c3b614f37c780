#include "base/Modifiers.h"
#include "controller/Localized.h"
#include "controller/ProcessState.h"
#include "controller/SettingsNow.h"
#include "controller/TVController.h"
#include "menu/MenuBuilder.h"
#include "menu/MenuTitles.h"
#include "platform/Platform.h"
#include "platform/SystemLog.h"

namespace tavrel {

namespace {

void addHidden(Menu& menu, MenuItem item) {
  menu.add(std::move(item)).hidden = true;
}

void addLiveSubmenu(Menu& menu, const char* title, const char* kind, MenuDelegate* delegate) {
  MenuItem& item = menu.add({.title = localized(title)});
  item.submenu = std::make_shared<Menu>(kind);
  item.submenu->delegate = delegate;
}

std::optional<Image> settingsAlternateIcon(const MenuImages& images) {
  if (!showIcon || !images.prefIcon)
    return std::nullopt;
  return badged(*images.prefIcon, images.move_badge_image);
}

} // namespace

void TVController::addFixedTop(Menu& menu) {
  addHidden(menu, {.title = localized("Selected Folder")});
  addHidden(menu, {.isSeparator = true});
  if (settings_.showProcessMenu)
    addLiveSubmenu(menu, "Running Applications", processMenuTitle, this);
  if (settings_.showRecentItems)
    addLiveSubmenu(menu, "Recent Items", recentMenuTitle, this);
  if (settings_.showProcessMenu || settings_.showRecentItems)
    menu.addSeparator();
}

void TVController::addFixedBottom(Menu& menu) {
  if (!settingsNow::doTavrelSetting())
    return;
  MenuItem& entry =
      menu.add({.title = localized("Tavrel Setting"), .action = MenuAction::openTavrelPref});
  if (showIcon)
    entry.image = images_.prefIcon;
  MenuItem alternate{.title = localized("Add to Tavrel"), .action = MenuAction::openTavrelPref};
  alternate.keyEquivalentModifierMask = modifier::option;
  alternate.isAlternate = true;
  alternate.image = settingsAlternateIcon(images_);
  addHidden(menu, std::move(alternate));
}

void TVController::createContextMenu(Menu& menu, const PropertyList::Array& array, int level) {
  if (level == 0)
    addFixedTop(menu);
  const MenuBuild build{settings_.browseFolder, settings_.browsePackage, images_, this};
  if (const auto place = buildRecords(menu, array, build)) {
    platform().log.write("menu: item " + recordPlaceText(*place) +
                         " of TVR_MenuTree has no title; the menu ends before it");
    return;
  }
  if (level == 0)
    addFixedBottom(menu);
}

} // namespace tavrel
