#pragma once

#include "base/KeyMap.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tavrel {

/// One character for each of the 128 virtual key codes, 0 for none: of Unicode, below 256.
using CharacterTable = std::array<std::uint8_t, 128>;

/// What the keys of a layout type: a table for each modifier state, the plain one first; other
/// layouts at hand may follow, in which a character is looked for that this one lacks.
struct CharacterTables {
  std::int16_t layoutId = 0;
  std::string layoutName; ///< at most 255 bytes
  std::vector<CharacterTable> tables;
};

/// The keyboard as it is now.
class Keyboard {
public:
  virtual ~Keyboard() = default;

  /// Every key down at this moment, by virtual key code: a key's place, whatever it types. A key
  /// that the layout makes a modifier may have the code of that modifier's left key instead.
  [[nodiscard]] virtual KeyMap keyMap() = 0;

  /// The modifiers in force, in the event-manager form (base/Modifiers.h).
  [[nodiscard]] virtual std::uint32_t eventModifiers() = 0;

  /// The current layout's identifier, as "com.apple.keylayout.Dvorak"; empty when unknown.
  [[nodiscard]] virtual std::string layoutIdentifier() = 0;

  /// A number that tells layouts apart; changes when the user switches layouts.
  [[nodiscard]] virtual std::int16_t layoutId() = 0;

  /// The current layout's tables; nothing when the desktop cannot tell.
  [[nodiscard]] virtual std::optional<CharacterTables> characterTables() = 0;

  /// What a key types without modifiers, dead keys cleared: one Mac Roman code in the low byte
  /// and, where the key types two, another in bits 16 to 23; 0 for nothing.
  [[nodiscard]] virtual std::uint32_t translate(std::uint16_t keyCode) = 0;
};

} // namespace tavrel
