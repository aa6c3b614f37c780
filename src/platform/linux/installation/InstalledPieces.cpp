#include "platform/linux/installation/InstalledPieces.h"

#include <algorithm>
#include <array>

namespace tavrel {

namespace {

enum class PieceOwner { system, person };

struct KnownPiece {
  InstalledPiece piece;
  PieceOwner owner;
  const char* name;
  const char* path;
  const char* place;
};

constexpr const char* pluginPath = "/Library/Contextual Menu Items/Tavrel.plugin";
constexpr const char* panePath = "/Library/PreferencePanes/TavrelPref.prefPane";

constexpr std::array<KnownPiece, 4> knownPieces{
    {{InstalledPiece::systemPlugin, PieceOwner::system, "system-plugin", pluginPath,
      "lib/tavrel/Tavrel.plugin"},
     {InstalledPiece::personPlugin, PieceOwner::person, "person-plugin", pluginPath,
      ".local/lib/tavrel/Tavrel.plugin"},
     {InstalledPiece::systemPane, PieceOwner::system, "system-pane", panePath,
      "lib/tavrel/TavrelPref.prefPane"},
     {InstalledPiece::personPane, PieceOwner::person, "person-pane", panePath,
      ".local/lib/tavrel/TavrelPref.prefPane"}}};

template <class Matches> std::optional<InstalledPiece> pieceThat(Matches matches) {
  const auto* found = std::ranges::find_if(knownPieces, matches);
  return found == knownPieces.end() ? std::nullopt : std::optional(found->piece);
}

const KnownPiece& known(InstalledPiece piece) {
  return *std::ranges::find(knownPieces, piece, &KnownPiece::piece);
}

} // namespace

std::optional<InstalledPiece> installedPiece(const std::string& path, const std::string& home) {
  return pieceThat([&](const KnownPiece& each) {
    std::string known = each.owner == PieceOwner::person ? home : std::string();
    return path == known.append(each.path);
  });
}

PiecePlace placeOf(InstalledPiece piece, const PieceFolders& folders) {
  const KnownPiece& each = known(piece);
  return {each.owner == PieceOwner::person ? folders.home : folders.prefix, each.place};
}

const char* pieceName(InstalledPiece piece) {
  return known(piece).name;
}

std::optional<InstalledPiece> pieceNamed(const std::string& name) {
  return pieceThat([&](const KnownPiece& each) { return name == each.name; });
}

} // namespace tavrel
