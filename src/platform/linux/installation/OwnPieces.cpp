#include "platform/linux/installation/OwnPieces.h"

#include "base/PathString.h"
#include "platform/linux/installation/ResourceFolder.h"
#include "platform/linux/system/UserFolders.h"

namespace tavrel {

// Resources stand in PREFIX/share/tavrel.
PieceFolders ownPieceFolders() {
  return {deletingLastPathComponent(deletingLastPathComponent(resourceFolder())), homeFolder()};
}

std::optional<PiecePlace> placeOfPiece(const std::string& path) {
  const auto piece = installedPiece(path, homeFolder());
  return piece ? std::optional(placeOf(*piece, ownPieceFolders())) : std::nullopt;
}

} // namespace tavrel
