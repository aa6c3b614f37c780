#pragma once

#include "platform/Accessibility.h"

namespace tavrel {

/// The accessibility API of the system. The user has to permit it: until then elements have no
/// properties and posted keys do not arrive.
class MacAccessibility final : public Accessibility {
public:
  AXUIElementRef applicationElement(std::int32_t processIdentifier) override;
  AXUIElementRef systemWideElement() override;
  AXUIElementRef elementAt(const AXUIElementRef& root, Point point) override;
  std::optional<PropertyList> role(const AXUIElementRef& element) override;
  bool postKeyboardEvent(const AXUIElementRef& application, const KeyboardEvent& event) override;

  /// Has the system prompt the user for the permission, unless it is granted.
  static void askForPermission();
};

} // namespace tavrel
