#pragma once

#include "platform/linux/x11/keyboard/ServerKey.h"
#include "platform/linux/x11/keyboard/ServerModifiers.h"

#include <cstdint>
#include <deque>
#include <memory>
#include <set>
#include <vector>

namespace tavrel {

enum class SequelKind {
  none,        ///< nothing has happened yet
  released,    ///< a modifier went up
  interrupted, ///< another key, a mouse button or the wheel was used
};

/// What came next after a change of the modifiers. Caps Lock counts as nothing.
struct ModifierSequel {
  SequelKind kind = SequelKind::none;
  std::uint32_t time = 0; ///< of the server, in milliseconds
  ServerKeySet down;      ///< right after it
};

/// A modifier key went down or up.
struct ModifierChange {
  std::size_t pressed = 0; ///< server key code; 0: one was released
  std::uint32_t time = 0;  ///< of the server, in milliseconds
  ServerKeySet down;       ///< every key down right after it
  std::shared_ptr<const ModifierSequel> sequel;
};

/// Follows the keys: which are down at each change of a modifier, and what comes next, so that a
/// tap can be told by when it happened, however late it is looked at. Is fed every event in order,
/// by server key code and button number.
class ModifierTaps {
public:
  /// With the keys that are down already.
  ModifierTaps(ServerModifiers modifiers, const ServerKeySet& down)
      : modifiers_(modifiers), down_(down) {}

  /// The layout has changed.
  void setModifiers(ServerModifiers modifiers) { modifiers_ = modifiers; }
  /// What is down, in truth: the server does not tell of keys and buttons while somebody has
  /// grabbed their device.
  void synchronize(const ServerKeySet& down, std::set<std::uint32_t> buttons);

  void keyDown(std::size_t key, std::uint32_t time);
  void keyUp(std::size_t key, std::uint32_t time);
  void buttonDown(std::uint32_t button, std::uint32_t time);
  void buttonUp(std::uint32_t button);

  /// Oldest first; the caller takes them out.
  std::deque<ModifierChange> changes;

private:
  void change(std::size_t pressed, std::uint32_t time);
  void goOn(SequelKind kind, std::uint32_t time);

  ServerModifiers modifiers_;
  ServerKeySet down_;
  std::set<std::uint32_t> buttons_;
  std::vector<std::shared_ptr<ModifierSequel>> open_; ///< of the changes nothing has followed
};

} // namespace tavrel
