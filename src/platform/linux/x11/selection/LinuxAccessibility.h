#pragma once

#include "platform/Accessibility.h"
#include "platform/linux/accessibility/AccessibilityBus.h"
#include "platform/linux/x11/keystrokes/KeystrokePoster.h"
#include "platform/linux/x11/selection/SelectionKeys.h"

namespace tavrel {

/// What the port needs of the rest of the desktop. All must outlive it.
struct AccessibilityDesktop {
  ApplicationRegistry& registry;
  DesktopWindows& windows;
  OwnKeystrokes& own;
  ClipboardThread* clipboard; ///< null without an X server
  std::function<std::vector<std::string>()> exceptions = [] { return std::vector<std::string>(); };
  std::function<void()> answered = [] {}; ///< see SelectionKeysDesktop
};

/// Keystrokes by XTest, to the focused client; elements and roles by AT-SPI, where its bus is on.
class LinuxAccessibility final : public Accessibility {
public:
  explicit LinuxAccessibility(const AccessibilityDesktop& desktop);

  AXUIElementRef applicationElement(std::int32_t processIdentifier) override;
  AXUIElementRef systemWideElement() override;
  AXUIElementRef elementAt(const AXUIElementRef& root, Point point) override;
  std::optional<PropertyList> role(const AXUIElementRef& element) override;
  bool postKeyboardEvent(const AXUIElementRef& application, const KeyboardEvent& event) override;

  /// See KeystrokePoster.
  void retype(const RecordedKeyEvents& events, const ServerKeySet& down) {
    poster_.retype(events, down);
  }

private:
  DesktopWindows& windows_;
  AccessibilityBus bus_;
  KeystrokePoster poster_;
  SelectionKeys selectionKeys_;
};

} // namespace tavrel
