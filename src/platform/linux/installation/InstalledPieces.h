#pragma once

#include <optional>
#include <string>

namespace tavrel {

/// What an installation may have put into the system besides the program, and for whom.
enum class InstalledPiece { systemPlugin, personPlugin, systemPane, personPane };

/// Where a piece stands: the folder is trusted, the path below it holds no link.
struct PiecePlace {
  std::string folder;
  std::string relative;
};

/// The folders that pieces are installed in.
struct PieceFolders {
  std::string prefix; ///< of the installation, as /usr
  std::string home;   ///< of the person
};

/// The piece that the application knows under a path: "/Library/Contextual Menu
/// Items/Tavrel.plugin" and "/Library/PreferencePanes/TavrelPref.prefPane", each also below the
/// person's home folder.
[[nodiscard]] std::optional<InstalledPiece> installedPiece(const std::string& path,
                                                           const std::string& home);

[[nodiscard]] PiecePlace placeOf(InstalledPiece piece, const PieceFolders& folders);

/// A piece by the name under which it is asked for between programs, and back.
[[nodiscard]] const char* pieceName(InstalledPiece piece);
[[nodiscard]] std::optional<InstalledPiece> pieceNamed(const std::string& name);

} // namespace tavrel
