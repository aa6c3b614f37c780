#pragma once

#include "platform/Accessibility.h"

namespace tavrel {

/// A key of the alphabet by what it types and where it is.
struct LetterKey {
  char character;
  std::uint16_t usKeyCode;
  std::uint16_t dvorakKeyCode;
  KeyPurpose purpose;
};

inline constexpr LetterKey copyKey{'c', 8, 34, KeyPurpose::copySelection};
inline constexpr LetterKey pasteKey{'v', 9, 47, KeyPurpose::pasteSelection};

/// Presses and releases the key with Command held, as the application's own keystroke.
void postCommandKeystroke(const AXUIElementRef& application, const LetterKey& letter);

} // namespace tavrel
