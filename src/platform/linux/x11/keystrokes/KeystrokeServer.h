#pragma once

#include "platform/linux/x11/keyboard/ServerKey.h"
#include "platform/linux/x11/keyboard/XkbKeyboard.h"

#include <memory>
#include <vector>

struct xcb_connection_t;

namespace tavrel {

/// Posts keys (XTest) and reads the state of the keyboard, over an X connection of its own.
class KeystrokeServer {
public:
  /// Null without an X server that has XKB, XInput 2 and XTest.
  [[nodiscard]] static std::unique_ptr<KeystrokeServer> create();
  ~KeystrokeServer();
  KeystrokeServer(const KeystrokeServer&) = delete;
  KeystrokeServer& operator=(const KeystrokeServer&) = delete;

  [[nodiscard]] xcb_connection_t& connection();
  [[nodiscard]] bool isThere();
  [[nodiscard]] XkbKeymap keymap();
  [[nodiscard]] std::uint32_t group();
  [[nodiscard]] bool capsLockIsOn();
  /// The keys that the server counts as down, pressed by the user or posted.
  [[nodiscard]] ServerKeySet down();
  /// The keys that are down on the physical keyboards, also those that a program has released.
  [[nodiscard]] ServerKeySet physicallyDown();
  /// The keys that act as modifiers while they are down, without those that lock.
  [[nodiscard]] ServerKeySet modifierKeys(xkb_keymap& keymap);

  /// The keys that lock something (Caps Lock and the like) or switch to another group.
  [[nodiscard]] static ServerKeySet lockKeys(xkb_keymap& keymap);

  void lockGroup(std::uint32_t group);
  void send(const std::vector<ServerKey>& keys);
  /// Sends them only if the keyboard focus is in this window, and says so. Nothing can take the
  /// focus between the look and the keys.
  [[nodiscard]] bool sendTo(std::uint32_t window, const std::vector<ServerKey>& keys);
  /// Returns when the server has carried out all requests.
  void roundTrip();

private:
  struct Connection;
  explicit KeystrokeServer(std::unique_ptr<Connection> connection);
  std::unique_ptr<Connection> connection_;
};

} // namespace tavrel
