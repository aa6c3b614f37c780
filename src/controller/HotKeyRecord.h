#pragma once

#include "base/PropertyList.h"
#include "platform/HotKeys.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace tavrel {

/// One registered hot key.
struct HotKeyRecord {
  EventHotKeyRef HotKeyRef = 0;           ///< what it is known by when it fires
  std::optional<PropertyList> HotKeyItem; ///< what it runs; nothing: it opens the pop-up
  std::uint32_t HotKeyMod = 0;            ///< event-manager form, as registered
  std::uint16_t HotKeyChar = 0;           ///< as the tree gives it, upper or lower case
};

/// All hot keys registered now, in the order they were registered.
extern std::vector<HotKeyRecord> gHotkeyArray;

/// The keystroke that is handed on to the application in front. Never reset: a hand-on overwrites
/// what it needs and takes the rest from the one before.
extern std::uint16_t gAppCharCode;
extern std::uint16_t gAppKeyCode;   ///< virtual key code
extern std::uint32_t gAppModifiers; ///< event-manager form

} // namespace tavrel
