#pragma once

#include "platform/Keyboard.h"

#include <functional>
#include <memory>

namespace tavrel {

/// The state of the X server's keyboard, over a connection of its own. Without a server, or when it
/// ends, no key is down and no layout is known; one line on standard error says so.
///
/// `tapIsInterrupted` is called for each snapshot; while it answers true the snapshot shows a key
/// as down that no keyboard has. The core polls snapshots to decide whether a modifier is tapped
/// alone: so a click, a turn of the wheel, or a key too short for any snapshot counts as another
/// key.
class LinuxKeyboard final : public Keyboard {
public:
  explicit LinuxKeyboard(std::function<bool()> tapIsInterrupted = {});
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

  std::function<bool()> tapIsInterrupted_;
  std::unique_ptr<Server> server_; ///< null without a server
};

} // namespace tavrel
