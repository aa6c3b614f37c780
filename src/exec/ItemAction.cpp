#include "exec/ItemAction.h"

namespace tavrel {

namespace {

bool commandMod(const ItemChoice& choice) {
  return choice.commandHeld && !choice.fromHotKey;
}

ItemAction plainFolderAction(const ItemChoice& choice) {
  if (!commandMod(choice))
    return ItemAction::openFolder;
  return choice.terminalWithCommand ? ItemAction::openFolderWithTerminal : ItemAction::showInFinder;
}

ItemAction documentAction(const ItemChoice& choice) {
  return commandMod(choice) ? ItemAction::showInFinder : ItemAction::openFile;
}

ItemAction scriptAction(const ItemChoice& choice) {
  if (choice.optionHeld && !choice.fromHotKey)
    return ItemAction::openFile;
  return commandMod(choice) ? ItemAction::showInFinder : ItemAction::execScript;
}

// The Option key is tested alone: a hot key has stored that it is up.
ItemAction applicationAction(const ItemChoice& choice) {
  if (commandMod(choice))
    return ItemAction::showInFinder;
  return choice.filesCaptured && !choice.optionHeld ? ItemAction::openSelectedFiles
                                                    : ItemAction::openFile;
}

} // namespace

ItemAction actionForItem(const ItemChoice& choice) {
  switch (choice.type) {
  case ItemType::documentFile:
  case ItemType::package:
    return choice.plainFolder ? ItemAction::openFolder : documentAction(choice);
  case ItemType::folder:
    return choice.alternate && !choice.fromHotKey ? ItemAction::moveSelectedFiles
                                                  : plainFolderAction(choice);
  case ItemType::url:
    return ItemAction::openUrl;
  case ItemType::appleScript:
    return scriptAction(choice);
  case ItemType::services:
    return ItemAction::performService;
  case ItemType::application:
    return applicationAction(choice);
  case ItemType::unknown:
  case ItemType::group:
  case ItemType::spacer:
    return ItemAction::nothing;
  }
  return ItemAction::nothing;
}

ItemAction actionForBrowsedFile(const ItemChoice& choice) {
  switch (choice.type) {
  case ItemType::documentFile:
  case ItemType::package:
    return documentAction(choice);
  case ItemType::folder:
    if (choice.alternate)
      return choice.filesCaptured ? ItemAction::moveSelectedFiles : ItemAction::openFolder;
    return plainFolderAction(choice);
  case ItemType::appleScript:
    return scriptAction(choice);
  case ItemType::application:
    return applicationAction(choice);
  case ItemType::unknown:
  case ItemType::url:
  case ItemType::services:
  case ItemType::group:
  case ItemType::spacer:
    return ItemAction::nothing;
  }
  return ItemAction::nothing;
}

ItemAction actionForApplication(const ItemChoice& choice) {
  if (choice.optionHeld)
    return ItemAction::quit;
  return choice.commandHeld ? ItemAction::showInFinder : ItemAction::bringToFront;
}

ItemAction actionForRecentItem(const ItemChoice& choice) {
  if (choice.isServer)
    return ItemAction::openServer;
  return choice.commandHeld ? ItemAction::showInFinder : ItemAction::openFile;
}

EntryEffects effectsOf(ItemAction (*decide)(const ItemChoice&), ItemChoice choice) {
  EntryEffects effects{.withoutFiles = decide(choice)};
  choice.filesCaptured = true;
  effects.plain = decide(choice);
  choice.commandHeld = true;
  effects.withCommand = decide(choice);
  choice.commandHeld = false;
  choice.optionHeld = true;
  effects.withOption = decide(choice);
  return effects;
}

} // namespace tavrel
