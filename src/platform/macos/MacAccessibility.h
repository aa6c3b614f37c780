#pragma once

#include "platform/Accessibility.h"

namespace tavrel {

/// The system's accessibility, which the person has to allow: until then elements answer nothing
/// and keys do not arrive.
class MacAccessibility final : public Accessibility {
public:
  AXUIElementRef applicationElement(std::int32_t processIdentifier) override;
  AXUIElementRef systemWideElement() override;
  AXUIElementRef elementAt(const AXUIElementRef& root, Point point) override;
  std::optional<PropertyList> role(const AXUIElementRef& element) override;
  bool postKeyboardEvent(const AXUIElementRef& application, const KeyboardEvent& event) override;

  /// Has the system ask the person, unless it is allowed already.
  static void askForPermission();
};

} // namespace tavrel
