#include "base/Format.h"
#include "controller/ProcessState.h"
#include "controller/SettingsNow.h"
#include "controller/TVController.h"
#include "exec/ItemAction.h"
#include "exec/PerformAction.h"
#include "exec/ScriptRunner.h"
#include "invoke/KeyState.h"
#include "maint/UpdateCheck.h"
#include "menu/PathHelpers.h"
#include "platform/Platform.h"
#include "platform/Workspace.h"
#include "selection/PrivatePasteboard.h"

namespace tavrel {

namespace {

bool hasCapturedFiles() {
  const auto files = capturedFiles();
  return files && !files->empty();
}

std::string itemPath(const PropertyList& item, ItemType type) {
  const auto path = isFileType(type) ? fullPathForItem(item) : std::nullopt;
  return path ? cleanedUpPath(*path) : std::string();
}

ActionTarget targetOf(const PropertyList& item, ItemType type) {
  const std::string* url = item.stringFor(TVR_MenuItemURL);
  return {.path = itemPath(item, type),
          .url = url ? *url : std::string(),
          .openMask = openTypeMask(item)};
}

ItemChoice choiceNow(ItemType type) {
  ItemChoice choice{.type = type};
  choice.commandHeld = CheckCommandKey();
  choice.optionHeld = sOptionKeyPressed;
  choice.terminalWithCommand = settingsNow::openTerminalWithCmdKey();
  return choice;
}

} // namespace

void TVController::executeItem(const PropertyList& item, bool fromHotKey,
                               const MenuItem* menuItem) {
  const ItemType type = itemType(item);
  const ActionTarget target = targetOf(item, type);
  ItemChoice choice = choiceNow(type);
  choice.fromHotKey = fromHotKey;
  choice.alternate = menuItem != nullptr && menuItem->isAlternate;
  choice.plainFolder = isDirectory(target.path, CleanPath::yes) == DirectoryKind::folder;
  choice.filesCaptured = hasCapturedFiles();
  doCheckUpdates();
  perform(actionForItem(choice), target, *this);
}

void TVController::fileItemDidSelected(MenuItem& menuItem) {
  const std::string* path =
      menuItem.representedObject ? menuItem.representedObject->string() : nullptr;
  if (!path)
    return;
  const ItemType type = itemTypeFromName(itemTypeFromPath(*path));
  const ActionTarget target{.path = cleanedUpPath(*path)};
  sOptionKeyPressed = CheckOptionKey();
  ItemChoice choice = choiceNow(type);
  choice.alternate = menuItem.isAlternate;
  choice.filesCaptured = type == ItemType::folder ? isSelectionFiles() : hasCapturedFiles();
  doCheckUpdates();
  perform(actionForBrowsedFile(choice), target, *this);
}

void TVController::openFolder(const std::string& path) {
  if (settingsNow::openWithPathFinder() &&
      runOwnSource({"tell application \"Path Finder\" to open \"%@\" as POSIX file", {path}}))
    return;
  platform().workspace.openFile(path);
}

} // namespace tavrel
