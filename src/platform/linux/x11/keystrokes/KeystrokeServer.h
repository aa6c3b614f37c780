#pragma once

#include "platform/linux/x11/keyboard/ServerKey.h"
#include "platform/linux/x11/keyboard/XkbKeyboard.h"
#include "platform/linux/x11/keystrokes/HeldModifiers.h"

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
  /// The modifier bits that keys which are down have set.
  [[nodiscard]] std::uint8_t modifiersInForce();
  /// The keys that the server counts as down, pressed by the user or posted.
  [[nodiscard]] ServerKeySet down();
  /// The keys that are down on the physical keyboards, also those that a program has released.
  [[nodiscard]] ServerKeySet physicallyDown();
  /// The keys that programs hold down (XTest), this one or others.
  [[nodiscard]] ServerKeySet downByPrograms();
  /// Without those that lock.
  [[nodiscard]] ModifierKeys modifierKeys(xkb_keymap& keymap);

  /// The keys that lock something (Caps Lock and the like) or switch to another group.
  [[nodiscard]] static ServerKeySet lockKeys(xkb_keymap& keymap);

  void lockGroup(std::uint32_t group);
  /// A key that goes down once more does so a moment after it went up: at the same time it would
  /// be taken for one that repeats.
  void send(const std::vector<ServerKey>& keys);
  /// Runs `work` while the server does nothing for other programs: none of them posts keys or takes
  /// the focus in between. `work` must not wait for another connection. Returns when the server has
  /// carried it out.
  template <typename Work> void alone(Work work) {
    holdServer();
    work();
    releaseServer();
  }
  [[nodiscard]] bool hasFocus(std::uint32_t window);
  /// Returns when the server has carried out all requests.
  void roundTrip();

private:
  struct Connection;
  explicit KeystrokeServer(std::unique_ptr<Connection> connection);
  void holdServer();
  void releaseServer();
  std::unique_ptr<Connection> connection_;
};

} // namespace tavrel
