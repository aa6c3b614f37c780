#pragma once

#include "base/Modifiers.h"
#include "platform/macos/CFOwned.h"

#include <ApplicationServices/ApplicationServices.h>

#include <cstdint>

namespace tavrel {

enum class KeyGoes { down, up };

/// A key as a person would press it, with modifiers in the event-manager form.
inline void postKey(std::uint32_t key, KeyGoes goes, std::uint32_t modifiers = 0) {
  const CFOwned<CGEventRef> event(
      CGEventCreateKeyboardEvent(nullptr, static_cast<CGKeyCode>(key), goes == KeyGoes::down));
  CGEventFlags flags = 0;
  if ((modifiers & eventModifier::command) != 0)
    flags |= kCGEventFlagMaskCommand;
  if ((modifiers & eventModifier::shift) != 0)
    flags |= kCGEventFlagMaskShift;
  if ((modifiers & eventModifier::option) != 0)
    flags |= kCGEventFlagMaskAlternate;
  if ((modifiers & eventModifier::control) != 0)
    flags |= kCGEventFlagMaskControl;
  if (modifiers != 0)
    CGEventSetFlags(event.get(), flags);
  CGEventPost(kCGHIDEventTap, event.get());
}

} // namespace tavrel
