#include "base/Format.h"
#include "controller/PreferenceStore.h"
#include "controller/SettingKeys.h"
#include "controller/TVController.h"
#include "exec/FileActions.h"
#include "exec/ItemAction.h"
#include "exec/OptionKeyFlag.h"
#include "exec/ScriptRunner.h"
#include "invoke/KeyState.h"
#include "maint/UpdateCheck.h"
#include "menu/PathHelpers.h"
#include "platform/Platform.h"
#include "platform/Workspace.h"
#include "selection/PrivatePasteboard.h"

namespace tavrel {

namespace {

// What the chosen item names.
struct Target {
  std::string path;
  std::string url;
  std::int32_t openMask = 0;
};

bool hasCapturedFiles() {
  const auto files = capturedFiles();
  return files && !files->empty();
}

std::string itemPath(const PropertyList& item, ItemType type) {
  const auto path = isFileType(type) ? fullPathForItem(item) : std::nullopt;
  return path ? cleanedUpPath(*path) : std::string();
}

Target targetOf(const PropertyList& item, ItemType type) {
  const std::string* url = item.stringFor(TVR_MenuItemURL);
  return {itemPath(item, type), url ? *url : std::string(), openTypeMask(item)};
}

ItemChoice choiceNow(ItemType type) {
  ItemChoice choice{.type = type};
  choice.commandHeld = CheckCommandKey();
  choice.optionHeld = sOptionKeyPressed;
  choice.terminalWithCommand = TVR_BoolForKey(TVR2_OpenTerminalWithCmdKey, false);
  return choice;
}

void perform(ItemAction action, const Target& target, TVController& controller) {
  switch (action) {
  case ItemAction::nothing:
    return;
  case ItemAction::openFile:
    platform().workspace.openFile(target.path);
    return;
  case ItemAction::openFolder:
    return controller.openFolder(target.path);
  case ItemAction::openSelectedFiles:
    openFiles(capturedFiles().value_or(std::vector<std::string>()), target.path, target.openMask);
    return;
  case ItemAction::moveSelectedFiles:
    moveSelectedFiles(target.path);
    return;
  case ItemAction::openUrl:
    platform().workspace.openUrl(target.url);
    return;
  case ItemAction::showInFinder:
    return showInFinder(target.path);
  case ItemAction::openFolderWithTerminal:
    return openFolderWithTerminal(target.path);
  case ItemAction::execScript:
    return execScript(target.path);
  case ItemAction::performService:
    return controller.performServiceItem(target.url);
  }
}

} // namespace

void TVController::executeItem(const PropertyList& item, bool fromHotKey,
                               const MenuItem* menuItem) {
  const ItemType type = itemType(item);
  const Target target = targetOf(item, type);
  ItemChoice choice = choiceNow(type);
  choice.fromHotKey = fromHotKey;
  choice.alternate = menuItem != nullptr && menuItem->isAlternate;
  choice.plainFolder = isDirectory(target.path, CleanUp::first) == DirectoryKind::folder;
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
  const Target target{cleanedUpPath(*path), {}, 0};
  sOptionKeyPressed = CheckOptionKey();
  ItemChoice choice = choiceNow(type);
  choice.alternate = menuItem.isAlternate;
  choice.filesCaptured = type == ItemType::folder ? isSelectionFiles() : hasCapturedFiles();
  doCheckUpdates();
  perform(actionForBrowsedFile(choice), target, *this);
}

void TVController::openFolder(const std::string& path) {
  if (TVR_BoolForKey(TVR_OpenWithPathFinder, false) &&
      runOwnSource(filled("tell application \"Path Finder\" to open \"%@\" as POSIX file", path)))
    return;
  platform().workspace.openFile(path);
}

} // namespace tavrel
