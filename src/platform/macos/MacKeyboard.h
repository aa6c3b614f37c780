#pragma once

#include "platform/Keyboard.h"

namespace tavrel {

/// The state of the keys, and the user's layout from its own tables. Main thread only.
class MacKeyboard final : public Keyboard {
public:
  KeyMap keyMap() override;
  std::uint32_t eventModifiers() override;
  std::string layoutIdentifier() override;
  std::int16_t layoutId() override;
  std::optional<CharacterTables> characterTables() override;
  std::uint32_t translate(std::uint16_t keyCode) override;
};

} // namespace tavrel
