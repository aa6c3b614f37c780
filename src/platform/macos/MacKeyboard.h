#pragma once

#include "platform/Keyboard.h"

namespace tavrel {

/// The keys as the system sees them, and the person's layout by the layout's own tables. Main
/// thread only.
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
