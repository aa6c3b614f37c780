#include "platform/macos/MacAccessibility.h"

#include "platform/macos/Conversions.h"

#include <ApplicationServices/ApplicationServices.h>

namespace tavrel {

namespace {

constexpr float patience = 1; ///< seconds an application may take to answer

class MacElement final : public AXUIElement {
public:
  explicit MacElement(::AXUIElementRef element) : element_(element) {}
  [[nodiscard]] ::AXUIElementRef get() const { return element_.get(); }

private:
  CFOwned<::AXUIElementRef> element_;
};

AXUIElementRef wrapped(::AXUIElementRef element) {
  if (element)
    AXUIElementSetMessagingTimeout(element, patience);
  return std::make_shared<MacElement>(element);
}

::AXUIElementRef native(const AXUIElementRef& element) {
  const auto* ours = dynamic_cast<const MacElement*>(element.get());
  return ours ? ours->get() : nullptr;
}

// Elements count from the top of the main screen.
double fromTop(double y) {
  return CGDisplayBounds(CGMainDisplayID()).size.height - y;
}

} // namespace

AXUIElementRef MacAccessibility::applicationElement(std::int32_t processIdentifier) {
  return wrapped(AXUIElementCreateApplication(processIdentifier));
}

AXUIElementRef MacAccessibility::systemWideElement() {
  return wrapped(AXUIElementCreateSystemWide());
}

AXUIElementRef MacAccessibility::elementAt(const AXUIElementRef& root, Point point) {
  ::AXUIElementRef const from = native(root);
  ::AXUIElementRef found = nullptr;
  if (!from || AXUIElementCopyElementAtPosition(from, static_cast<float>(point.x),
                                                static_cast<float>(fromTop(point.y)),
                                                &found) != kAXErrorSuccess)
    return nullptr;
  return found ? wrapped(found) : nullptr;
}

std::optional<PropertyList> MacAccessibility::role(const AXUIElementRef& element) {
  ::AXUIElementRef const asked = native(element);
  CFTypeRef value = nullptr;
  if (!asked || AXUIElementCopyAttributeValue(asked, kAXRoleAttribute, &value) != kAXErrorSuccess)
    return std::nullopt;
  const CFOwned<CFTypeRef> owned(value);
  return propertyListOf(owned.get());
}

// Deprecated without another call that types into one application as the person would.
#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Wdeprecated-declarations"
bool MacAccessibility::postKeyboardEvent(const AXUIElementRef& application,
                                         const KeyboardEvent& event) {
  ::AXUIElementRef const receiver = native(application);
  return receiver &&
         AXUIElementPostKeyboardEvent(receiver, event.character, event.keyCode,
                                      event.direction == KeyDirection::down) == kAXErrorSuccess;
}
#pragma clang diagnostic pop

void MacAccessibility::askForPermission() {
  const void* key = kAXTrustedCheckOptionPrompt;
  const void* yes = kCFBooleanTrue;
  const CFOwned<CFDictionaryRef> options(CFDictionaryCreate(
      nullptr, &key, &yes, 1, &kCFTypeDictionaryKeyCallBacks, &kCFTypeDictionaryValueCallBacks));
  AXIsProcessTrustedWithOptions(options.get());
}

} // namespace tavrel
