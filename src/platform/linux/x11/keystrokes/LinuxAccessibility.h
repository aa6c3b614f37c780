#pragma once

#include "platform/Accessibility.h"
#include "platform/linux/accessibility/AccessibilityBus.h"
#include "platform/linux/x11/keystrokes/KeystrokePoster.h"

namespace tavrel {

/// Keystrokes by XTest, to the focused client; elements and roles by AT-SPI, where its bus is on.
class LinuxAccessibility final : public Accessibility {
public:
  /// All must outlive this.
  LinuxAccessibility(ApplicationRegistry& registry, DesktopWindows& windows, OwnKeystrokes& own)
      : windows_(windows), poster_(registry, windows, own) {}

  AXUIElementRef applicationElement(std::int32_t processIdentifier) override;
  AXUIElementRef systemWideElement() override;
  AXUIElementRef elementAt(const AXUIElementRef& root, Point point) override;
  std::optional<PropertyList> role(const AXUIElementRef& element) override;
  bool postKeyboardEvent(const AXUIElementRef& application, const KeyboardEvent& event) override;

  /// See KeystrokePoster.
  void retype(const RecordedKeyEvents& events) { poster_.retype(events); }

private:
  DesktopWindows& windows_;
  AccessibilityBus bus_;
  KeystrokePoster poster_;
};

} // namespace tavrel
