#include "platform/linux/x11/selection/SelectionRoad.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace tavrel {

namespace {

using namespace std::chrono_literals;

struct NamedProgram {
  std::string_view windowClass;
  PasteRoad paste;
};

// Programs whose keys nothing but their name tells.
constexpr std::array<NamedProgram, 4> namedPrograms{{
    {"Emacs", PasteRoad::shiftInsert}, // Ctrl+C begins commands, Ctrl+Insert drops the region
    {"Gvim", PasteRoad::none},         // Ctrl+C ends insert and visual mode
    {"neovide", PasteRoad::none},      // the same
    {"nvim-qt", PasteRoad::none},      // the same
}};

// Of the desktop menu specification 1.1: what is typed there is for another machine or a game.
constexpr std::array<std::string_view, 3> foreignCategories{"RemoteAccess", "Emulator", "Game"};

// Pictures and lists of files: their only copy key is often Ctrl+C.
constexpr std::array<std::string_view, 2> objectCategories{"Graphics", "FileManager"};

// AtspiRole of elements in which text or objects are selected.
constexpr std::array<std::uint32_t, 19> selectingRoles{
    26, // icon
    31, // list
    32, // list item
    40, // password text
    55, // table
    56, // table cell
    61, // text
    65, // tree
    66, // tree table
    73, // paragraph
    76, // autocomplete
    77, // editbar
    79, // entry
    90, // table row
    91, // tree item
    94, // document text
    95, // document web
    98, // list box
    52, // spin button
};

bool isAnyOf(const auto& values, const auto& known) {
  return std::ranges::any_of(
      values, [&](const auto& each) { return std::ranges::find(known, each) != known.end(); });
}

const NamedProgram* namedProgram(const ProgramEvidence& evidence) {
  const auto found =
      std::ranges::find(namedPrograms, evidence.windowClass, &NamedProgram::windowClass);
  return found == namedPrograms.end() ? nullptr : &*found;
}

// AtspiRole of elements that hand keys on, or that may.
constexpr std::array<std::uint32_t, 5> handingOnRoles{
    0,  // invalid
    6,  // canvas
    18, // drawing area
    60, // terminal
    67, // unknown
};

bool mayHandOn(const ProgramEvidence& evidence) {
  return evidence.handsKeysOn && (!isAnyOf(evidence.focusedRoles, selectingRoles) ||
                                  isAnyOf(evidence.focusedRoles, handingOnRoles));
}

std::chrono::milliseconds settleTime(Toolkit toolkit) {
  switch (toolkit) {
  case Toolkit::unknown:
  case Toolkit::common:
    return 20ms;
  case Toolkit::office:
    return 80ms;
  case Toolkit::multiProcess:
    return 100ms;
  }
  return 20ms;
}

} // namespace

SelectionRoad selectionRoad(const ProgramEvidence& evidence) {
  const SelectionRoad withoutKey;
  if (evidence.isExcepted || isAnyOf(evidence.categories, foreignCategories))
    return withoutKey;
  if (const NamedProgram* known = namedProgram(evidence))
    return {CopyRoad::primary, known->paste};
  if (evidence.terminal == TerminalKind::withPasteKey)
    return {CopyRoad::primary, PasteRoad::controlShiftV};
  if (evidence.terminal == TerminalKind::bare || evidence.toolkit == Toolkit::unknown ||
      mayHandOn(evidence))
    return withoutKey;
  const std::chrono::milliseconds settle = settleTime(evidence.toolkit);
  const bool showsObjects =
      evidence.isFileManager || isAnyOf(evidence.categories, objectCategories);
  if (showsObjects && !evidence.handsKeysOn)
    return {CopyRoad::controlC, PasteRoad::controlV, settle};
  return {CopyRoad::controlInsert, PasteRoad::shiftInsert, settle};
}

} // namespace tavrel
