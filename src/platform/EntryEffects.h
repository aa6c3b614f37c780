#pragma once

#include <cstdint>

namespace tavrel {

/// What a chosen item does.
enum class ItemAction : std::uint8_t {
  nothing,
  openFile,          ///< with its default application; launches an application alone
  openFolder,        ///< in the file manager
  openSelectedFiles, ///< the captured files, with this application
  moveSelectedFiles, ///< the captured files, into this folder
  openUrl,
  openServer, ///< the volume of a recent server
  showInFinder,
  openFolderWithTerminal,
  execScript,
  performService,
  bringToFront, ///< a running application
  quit,         ///< a running application
};

/// What choosing an entry will do, for a presenter that tells it to users who cannot see its icon.
/// The core works it out by the same functions that decide when the entry is chosen
/// (exec/ItemAction.h).
struct EntryEffects {
  ItemAction plain = ItemAction::nothing; ///< while files are selected, where that matters
  ItemAction withoutFiles = ItemAction::nothing;
  ItemAction withCommand = ItemAction::nothing;
  ItemAction withOption = ItemAction::nothing;

  friend bool operator==(const EntryEffects&, const EntryEffects&) = default;
};

} // namespace tavrel
