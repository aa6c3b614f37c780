#pragma once

#include "menu/ItemRecord.h"

namespace tavrel {

/// What a chosen item does.
enum class ItemAction {
  nothing,
  openFile,          ///< with its default application; launches an application alone
  openFolder,        ///< in the file manager
  openSelectedFiles, ///< the captured files, with this application
  moveSelectedFiles, ///< the captured files, into this folder
  openUrl,
  showInFinder,
  openFolderWithTerminal,
  execScript,
  performService,
};

/// The circumstances in which an item was chosen.
struct ItemChoice {
  ItemType type = ItemType::unknown;
  bool fromHotKey = false; ///< the plain action, whatever keys are held
  bool alternate = false;  ///< the Option-key alternate of a menu entry
  bool commandHeld = false;
  bool optionHeld = false;          ///< as stored when the item was chosen
  bool plainFolder = false;         ///< the path is a folder and no package
  bool filesCaptured = false;       ///< a file list that is not empty
  bool terminalWithCommand = false; ///< the setting `TVR2_OpenTerminalWithCmdKey`
};

/// For an item of the person's own tree.
[[nodiscard]] ItemAction actionForItem(const ItemChoice& choice);

/// For an entry of a browsed folder: `filesCaptured` is whether there is a file list at all for
/// folders, whether it holds files for applications; `plainFolder` does not count, and `fromHotKey`
/// is false, since no hot key leads here.
[[nodiscard]] ItemAction actionForBrowsedFile(const ItemChoice& choice);

} // namespace tavrel
