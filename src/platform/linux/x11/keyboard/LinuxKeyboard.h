#pragma once

#include "platform/Keyboard.h"

#include <functional>
#include <memory>

namespace tavrel {

/// The X server's keyboard, over a connection of its own. Without a server, or when it goes,
/// nothing is down and no layout is known; one line on standard error says so.
///
/// `tapIsInterrupted`, asked at each snapshot, makes it show a key as down that no keyboard has.
/// Whoever decides whether a modifier is tapped alone looks at snapshots: so a click or a turn of
/// the wheel while it is held, or a key too short for any snapshot, is another key to him.
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
