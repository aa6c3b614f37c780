#pragma once

#include "platform/Keyboard.h"

#include <map>

namespace tavrel {

/// A keyboard in the hands of a test.
class MemoryKeyboard final : public Keyboard {
public:
  struct Control {
    KeyMap down;
    std::uint32_t eventModifiers = 0;
    std::string layoutIdentifier = "com.apple.keylayout.US";
    std::int16_t layoutId = 0;
    std::optional<CharacterTables> tables;
    std::map<std::uint16_t, std::uint32_t> translations; ///< by key code
  };
  Control control;

  KeyMap keyMap() override { return control.down; }
  std::uint32_t eventModifiers() override { return control.eventModifiers; }
  std::string layoutIdentifier() override { return control.layoutIdentifier; }
  std::int16_t layoutId() override { return control.layoutId; }
  std::optional<CharacterTables> characterTables() override { return control.tables; }
  std::uint32_t translate(std::uint16_t keyCode) override;
};

} // namespace tavrel
