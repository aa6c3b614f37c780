#pragma once

#include "platform/linux/x11/keyboard/ServerModifiers.h"

#include <cstdint>
#include <deque>
#include <map>
#include <memory>
#include <set>

namespace tavrel {

/// One time that a modifier key is down, from going down to going up.
struct ModifierPress {
  std::size_t key = 0;      ///< server key code
  std::uint32_t time = 0;   ///< of the server, in milliseconds
  bool interrupted = false; ///< by another key, a mouse button or the wheel
};

/// A modifier key went down (then `press` tells of it) or up (then there is none).
struct ModifierChange {
  std::shared_ptr<const ModifierPress> press;
};

/// What the keys and buttons of all programs mean for the modifiers. Told of every event in order,
/// by server key code and button number.
class ModifierTaps {
public:
  explicit ModifierTaps(ServerModifiers modifiers) : modifiers_(modifiers) {}

  /// The layout has changed.
  void setModifiers(ServerModifiers modifiers) { modifiers_ = modifiers; }

  void keyDown(std::size_t key, std::uint32_t time);
  void keyUp(std::size_t key);
  void buttonDown(std::uint32_t button);
  void buttonUp(std::uint32_t button);

  /// Those not taken yet, oldest first.
  std::deque<ModifierChange> changes;

private:
  void interruptAllBut(std::size_t key);

  ServerModifiers modifiers_;
  std::map<std::size_t, std::shared_ptr<ModifierPress>> down_;
  std::set<std::uint32_t> buttons_;
};

} // namespace tavrel
