#pragma once

#include "menu/ItemRecord.h"
#include "platform/EntryEffects.h"

namespace tavrel {

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
  bool isServer = false;            ///< a recent entry that stands for no file
};

/// For an item of the user's own tree.
[[nodiscard]] ItemAction actionForItem(const ItemChoice& choice);

/// For an entry of a browsed folder: `filesCaptured` is whether there is a file list at all for
/// folders, whether it holds files for applications; `plainFolder` does not count, and `fromHotKey`
/// is false, since no hot key leads here.
[[nodiscard]] ItemAction actionForBrowsedFile(const ItemChoice& choice);

/// For a running application, and for a recent item.
[[nodiscard]] ItemAction actionForApplication(const ItemChoice& choice);
[[nodiscard]] ItemAction actionForRecentItem(const ItemChoice& choice);

/// What one of these functions decides under each of the circumstances that users may bring about
/// as they choose the entry.
[[nodiscard]] EntryEffects effectsOf(ItemAction (*decide)(const ItemChoice&), ItemChoice choice);

} // namespace tavrel
