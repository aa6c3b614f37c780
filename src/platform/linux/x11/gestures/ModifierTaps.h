#pragma once

#include "platform/linux/x11/keyboard/ServerModifiers.h"

#include <cstdint>
#include <deque>
#include <map>
#include <memory>
#include <set>

namespace tavrel {

/// A modifier key from going down to going up.
struct ModifierPress {
  std::size_t key = 0;      ///< server key code
  std::uint32_t time = 0;   ///< of the server, in milliseconds
  bool interrupted = false; ///< by another key, a mouse button or the wheel
};

/// A modifier key went down (then it has a `press`) or up (then it has none).
struct ModifierChange {
  std::shared_ptr<const ModifierPress> press;
};

/// Follows the modifier keys: which are down, and whether another key, button or the wheel has been
/// used meanwhile, so that they are not tapped alone. Is fed every event in order, by server key
/// code and button number.
class ModifierTaps {
public:
  explicit ModifierTaps(ServerModifiers modifiers) : modifiers_(modifiers) {}

  /// The layout has changed.
  void setModifiers(ServerModifiers modifiers) { modifiers_ = modifiers; }

  void keyDown(std::size_t key, std::uint32_t time);
  void keyUp(std::size_t key);
  void buttonDown(std::uint32_t button);
  void buttonUp(std::uint32_t button);

  /// Oldest first; the caller takes them out.
  std::deque<ModifierChange> changes;

private:
  void interruptAllBut(std::size_t key);

  ServerModifiers modifiers_;
  std::map<std::size_t, std::shared_ptr<ModifierPress>> down_;
  std::set<std::uint32_t> buttons_;
};

} // namespace tavrel
