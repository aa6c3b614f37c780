#pragma once

#include "platform/Accessibility.h"

namespace tavrel {

/// Nothing yet.
class LinuxAccessibility final : public Accessibility {
public:
  AXUIElementRef applicationElement(std::int32_t) override {
    return std::make_shared<AXUIElement>();
  }
  AXUIElementRef systemWideElement() override { return std::make_shared<AXUIElement>(); }
  AXUIElementRef elementAt(const AXUIElementRef&, Point) override { return nullptr; }
  std::optional<PropertyList> role(const AXUIElementRef&) override { return std::nullopt; }
  bool postKeyboardEvent(const AXUIElementRef&, const KeyboardEvent&) override { return false; }
};

} // namespace tavrel
