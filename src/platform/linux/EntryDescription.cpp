#include "platform/linux/EntryDescription.h"

#include "base/Modifiers.h"

namespace tavrel {

namespace {
bool movesSelection(const MenuItem& item) {
  return item.isAlternate && (item.keyEquivalentModifierMask & modifier::option) != 0 &&
         (item.action == MenuAction::fileItemDidSelected ||
          item.action == MenuAction::statusMenuDidSelected);
}

QString whatActionDoes(MenuAction action) {
  switch (action) {
  case MenuAction::fileItemDidSelected:
    return QStringLiteral("Opens the file; with Ctrl, shows it in its folder");
  case MenuAction::recentItemSelected:
    return QStringLiteral("Opens the recent item; with Ctrl, shows it in its folder");
  case MenuAction::processItemSelected:
    return QStringLiteral("Brings the application to the front; with Alt, quits it; with Ctrl, "
                          "shows it in its folder");
  default:
    return {};
  }
}
} // namespace

QString entryDescription(const MenuItem& item) {
  if (item.isSeparator || !item.enabled)
    return {};
  if (movesSelection(item))
    return QStringLiteral("Moves the selected files into this folder");
  if (!item.submenu)
    return whatActionDoes(item.action);
  return item.action == MenuAction::none
             ? QStringLiteral("Opens a submenu")
             : QStringLiteral("Opens the folder; its submenu lists what is inside");
}

} // namespace tavrel
