#pragma once

#include "platform/linux/x11/keyboard/ServerKey.h"
#include "platform/linux/x11/keyboard/XkbKeyboard.h"

#include <memory>
#include <vector>

struct xcb_connection_t;

namespace tavrel {

/// The server's keyboard as one who types on it sees it, over a connection of its own.
class KeystrokeServer {
public:
  /// Null without a server that lets keys be posted.
  [[nodiscard]] static std::unique_ptr<KeystrokeServer> create();
  ~KeystrokeServer();
  KeystrokeServer(const KeystrokeServer&) = delete;
  KeystrokeServer& operator=(const KeystrokeServer&) = delete;

  [[nodiscard]] xcb_connection_t& connection();
  [[nodiscard]] bool isThere();
  [[nodiscard]] XkbKeymap keymap();
  [[nodiscard]] std::uint32_t group();
  [[nodiscard]] bool capsLockIsOn();
  /// What the server counts as down, from whatever source.
  [[nodiscard]] ServerKeySet down();
  /// What is down on the keyboards themselves, whoever lifted it meanwhile.
  [[nodiscard]] ServerKeySet physicallyDown();
  /// The keys that act as modifiers while they are held; none that locks.
  [[nodiscard]] ServerKeySet modifierKeys(xkb_keymap& keymap);

  /// Those that switch something on or off, or to another layout, for more than one key.
  [[nodiscard]] static ServerKeySet lockKeys(xkb_keymap& keymap);

  void lockGroup(std::uint32_t group);
  void send(const std::vector<ServerKey>& keys);
  /// Returns when the server has done all that was asked of it.
  void roundTrip();

private:
  struct Connection;
  explicit KeystrokeServer(std::unique_ptr<Connection> connection);
  std::unique_ptr<Connection> connection_;
};

} // namespace tavrel
