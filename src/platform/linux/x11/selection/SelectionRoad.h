#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

namespace tavrel {

/// How a program is asked for its selection.
enum class CopyRoad {
  primary,       ///< no key: PRIMARY is read, if it is of this program
  controlInsert, ///< the copy key of all toolkits, which no terminal takes for an interrupt
  controlC,      ///< for lists of files and pictures, which often have no other
};

/// How a program is given a paste.
enum class PasteRoad { none, shiftInsert, controlV, controlShiftV };

struct SelectionRoad {
  CopyRoad copy = CopyRoad::primary;
  PasteRoad paste = PasteRoad::none;
  /// How long at least the program may be quiet after it has handled the key until it counts as
  /// having copied nothing: those that copy in another process need longer.
  std::chrono::milliseconds settle{20};

  friend bool operator==(const SelectionRoad&, const SelectionRoad&) = default;
};

enum class TerminalKind { none, withPasteKey, bare };

/// What a program draws its windows with, as far as that tells which keys it knows.
enum class Toolkit {
  unknown,
  common,       ///< GTK, Qt, Java, Tk, Wine
  office,       ///< LibreOffice's: copies some rounds of its event loop after the key
  multiProcess, ///< a browser's: another process handles the key
};

/// What is known of the program with the keyboard.
struct ProgramEvidence {
  std::string program;                 ///< the name of its executable
  std::string windowClass;             ///< of its window
  std::vector<std::string> categories; ///< of its desktop entry
  bool isFileManager = false;
  bool isJava = false;
  TerminalKind terminal = TerminalKind::none;
  Toolkit toolkit = Toolkit::unknown;
  /// Whether parts of its windows hand keys on to something else: a shell, another machine.
  bool handsKeysOn = false;
  /// AtspiRole of the elements that say that they have the keyboard; asked for only where keys may
  /// be handed on.
  std::vector<std::uint32_t> focusedRoles;
  bool isExcepted = false; ///< by the user's settings
};

/// The road for a program. A key is sent only where it is known to be taken for a copy or a paste.
[[nodiscard]] SelectionRoad selectionRoad(const ProgramEvidence& evidence);

} // namespace tavrel
