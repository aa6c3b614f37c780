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

/// One key going down or up, as an application is to receive it.
struct KeyboardEvent {
  std::uint16_t character = 0; ///< what it types; 0 for a modifier key
  std::uint16_t keyCode = 0;   ///< virtual key code: the key's place
  KeyDirection direction = KeyDirection::down;
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
  virtual bool postKeyboardEvent(const AXUIElementRef& application, const KeyboardEvent& event) = 0;
};

} // namespace tavrel
