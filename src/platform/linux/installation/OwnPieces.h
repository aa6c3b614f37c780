#pragma once

#include "platform/linux/installation/InstalledPieces.h"

namespace tavrel {

/// The folders of this installation and of the person who runs it.
[[nodiscard]] PieceFolders ownPieceFolders();

/// Where the piece of a path stands here; nothing for every other path.
[[nodiscard]] std::optional<PiecePlace> placeOfPiece(const std::string& path);

} // namespace tavrel
