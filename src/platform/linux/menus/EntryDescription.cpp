#include "platform/linux/menus/EntryDescription.h"

#include "base/Modifiers.h"

namespace tavrel {

namespace {
bool movesSelection(const MenuItem& item) {
  return item.isAlternate && (item.keyEquivalentModifierMask & modifier::option) != 0 &&
         (item.action == MenuAction::fileItemDidSelected ||
          item.action == MenuAction::statusMenuDidSelected);
}

std::string whatMoveDoes(const MenuItem& item, const Localize& localized) {
  return item.action == MenuAction::fileItemDidSelected
             ? localized("Moves the selected files into this folder; without any, opens it")
             : localized("Moves the selected files into this folder");
}

std::string whatActionDoes(const MenuItem& item, const Localize& localized) {
  if (item.action == MenuAction::fileItemDidSelected)
    return localized("Opens the file; with Ctrl, shows it in its folder");
  if (item.action == MenuAction::processItemSelected)
    return localized("Comes to the front; with Alt, quits; with Ctrl, is shown in its folder");
  if (item.action != MenuAction::recentItemSelected)
    return {};
  return item.representedObject
             ? localized("Opens the recent item; with Ctrl, shows it in its folder")
             : localized("Opens the server");
}

} // namespace

std::string entryDescription(const MenuItem& item, const Localize& localized) {
  if (item.isSeparator || !item.enabled)
    return {};
  if (movesSelection(item))
    return whatMoveDoes(item, localized);
  if (!item.submenu)
    return whatActionDoes(item, localized);
  return item.action == MenuAction::none
             ? localized("Opens a submenu")
             : localized("Opens the folder; its submenu lists what is inside");
}

} // namespace tavrel
