#pragma once

#include "platform/Keyboard.h"
#include "platform/linux/x11/keyboard/KeysOfEvent.h"

#include <memory>

namespace tavrel {

/// The state of the X server's keyboard, over a connection of its own. Without a server, or when it
/// ends, no key is down and no layout is known; one line on standard error says so.
///
/// While a change of the modifiers is handled, snapshots show the keys that the event has left, and
/// then those that the next one has, whatever has become of them since: the core measures by them
/// how long a modifier was held, and whether alone.
class LinuxKeyboard final : public Keyboard {
public:
  explicit LinuxKeyboard(KeysOfEvent event = {});
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

  KeysOfEvent event_;
  std::unique_ptr<Server> server_; ///< null without a server
};

} // namespace tavrel
