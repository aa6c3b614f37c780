#pragma once

#include "platform/Keyboard.h"

#include <memory>

namespace tavrel {

/// The X server's keyboard, over a connection of its own. Without a server, or when it goes,
/// nothing is down and no layout is known; one line on standard error says so.
class LinuxKeyboard final : public Keyboard {
public:
  LinuxKeyboard();
  ~LinuxKeyboard() override;

  KeyMap keyMap() override;
  std::uint32_t eventModifiers() override;
  std::string layoutIdentifier() override;
  std::int16_t layoutId() override;
  std::optional<CharacterTables> characterTables() override;
  std::uint32_t translate(std::uint16_t keyCode) override;

private:
  struct Server;
  [[nodiscard]] bool hasServer();

  std::unique_ptr<Server> server_; ///< null without a server
};

} // namespace tavrel
