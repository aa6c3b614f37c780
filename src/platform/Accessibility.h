#pragma once

#include "base/Geometry.h"
#include "base/PropertyList.h"

#include <cstdint>
#include <memory>
#include <optional>

namespace tavrel {

/// An element of the accessibility tree: an application, the whole system, or what lies under a
/// point of the screen. Only the port that made it knows what is inside.
class AXUIElement {
public:
  virtual ~AXUIElement() = default;
};

/// Owned by whoever holds it: an element is released with its last reference.
using AXUIElementRef = std::shared_ptr<const AXUIElement>;

enum class KeyDirection { down, up };

/// What a keystroke is posted for. A program may be asked for its selection, or given a paste, by
/// another key than that of the event, or by none (see the desktop's adapter); a plain keystroke
/// arrives as it is. One that is handed on is a hot key that the user pressed: it arrives with the
/// modifiers that the events name and no other, also where its character needs Shift.
enum class KeyPurpose { keystroke, handedOn, copySelection, pasteSelection };

/// One key going down or up, as an application is to receive it.
struct KeyboardEvent {
  std::uint16_t character = 0; ///< what it types; 0 for a modifier key
  std::uint16_t keyCode = 0;   ///< virtual key code: the key's place
  KeyDirection direction = KeyDirection::down;
  KeyPurpose purpose = KeyPurpose::keystroke;
};

/// What assistive programs may do: look at other applications' elements and send them keys.
class Accessibility {
public:
  virtual ~Accessibility() = default;

  /// Never null; an element of a process that is not there takes keys and loses them.
  [[nodiscard]] virtual AXUIElementRef applicationElement(std::int32_t processIdentifier) = 0;
  [[nodiscard]] virtual AXUIElementRef systemWideElement() = 0;

  /// What lies at a point of the screen (origin at the bottom left of the main screen); null when
  /// nothing does or nobody answers in good time.
  [[nodiscard]] virtual AXUIElementRef elementAt(const AXUIElementRef& root, Point point) = 0;

  /// The element's "AXRole"; nothing when it has none.
  [[nodiscard]] virtual std::optional<PropertyList> role(const AXUIElementRef& element) = 0;

  /// Sends the application one key event. Modifiers go as keys of their own around the key they
  /// modify; what the user holds at the moment does not mix in. Between a modifier's down and its
  /// up the caller keeps posting and does nothing else. False when it could not be sent.
  ///
  /// A chord for `copySelection` blocks until the application has copied, or has shown that it has
  /// nothing to copy, or for half a second. Posted again while the clipboard has not been declared
  /// anew, it sends no second key. One for `pasteSelection` goes only to the window whose selection
  /// was copied last.
  virtual bool postKeyboardEvent(const AXUIElementRef& application, const KeyboardEvent& event) = 0;
};

} // namespace tavrel
