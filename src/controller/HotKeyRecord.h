#pragma once

#include "base/PropertyList.h"
#include "platform/HotKeys.h"

#include <cstdint>
#include <optional>

namespace tavrel {

/// One registered hot key.
struct HotKeyRecord {
  EventHotKeyRef HotKeyRef = 0;           ///< what it is known by when it fires
  std::optional<PropertyList> HotKeyItem; ///< what it runs; nothing: it opens the pop-up
  std::uint32_t HotKeyMod = 0;            ///< event-manager form, as registered
  std::uint16_t HotKeyChar = 0;           ///< as the tree gives it, upper or lower case
};

} // namespace tavrel
