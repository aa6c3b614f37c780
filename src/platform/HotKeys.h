#pragma once

#include "platform/Event.h"

#include <cstdint>
#include <string>

namespace tavrel {

/// Names a registered hot key; 0 names none.
using EventHotKeyRef = std::uint64_t;

/// 0 for success, else a negative code.
using OSStatus = std::int32_t;

namespace hotKeyStatus {
inline constexpr OSStatus registered = 0;
inline constexpr OSStatus taken = -9878;   ///< another program has this combination
inline constexpr OSStatus unknown = -9879; ///< no hot key has this reference
} // namespace hotKeyStatus

/// What the application tells its hot keys apart by, and what messages call them.
struct EventHotKeyID {
  std::uint32_t signature = 0; ///< four characters
  std::uint32_t id = 0;
  std::string shortcut = {}; ///< as the user wrote it
  std::string item = {};     ///< the title of what it is for; empty for the menu itself
  friend bool operator==(const EventHotKeyID&, const EventHotKeyID&) = default;
};

struct HotKeyRegistration {
  OSStatus status = hotKeyStatus::registered;
  EventHotKeyRef reference = 0; ///< 0 for a refused key that this desktop will not try again
};

/// Keys that reach this application whatever application is in front.
class HotKeys {
public:
  virtual ~HotKeys() = default;

  /// The head of the event stream, which is told of every release of a hot key: a system-defined
  /// event of the hot-key subtype with the reference as first data word, sent from the event loop.
  /// Not owned; null: nobody.
  virtual void setEventTarget(EventTarget* target) = 0;

  /// `keyCode` is a virtual key code, `modifiers` the event-manager form (base/Modifiers.h). The
  /// same combination twice may be refused. A refused key with a reference is tried again when the
  /// keyboard's layout changes, and works from then on.
  [[nodiscard]] virtual HotKeyRegistration
  registerHotKey(std::uint32_t keyCode, std::uint32_t modifiers, const EventHotKeyID& id) = 0;

  virtual OSStatus unregisterHotKey(EventHotKeyRef reference) = 0;
};

} // namespace tavrel
