#include "platform/macos/MacAccessibility.h"

#include "platform/macos/Conversions.h"
#include "platform/macos/OfThisDesktop.h"

#include <ApplicationServices/ApplicationServices.h>

#include <csignal>

namespace tavrel {

namespace {

constexpr float patience = 1; ///< seconds an application may take to answer

enum class Takes { nothing, keys };

class MacElement final : public AXUIElement {
public:
  MacElement(::AXUIElementRef element, Takes takes) : element_(element), takes_(takes) {}
  [[nodiscard]] ::AXUIElementRef get() const { return element_.get(); }
  [[nodiscard]] bool takesKeys() const { return takes_ == Takes::keys; }

private:
  CFOwned<::AXUIElementRef> element_;
  Takes takes_;
};

AXUIElementRef wrapped(::AXUIElementRef element, Takes takes = Takes::nothing) {
  if (element)
    AXUIElementSetMessagingTimeout(element, patience);
  return std::make_shared<MacElement>(element, takes);
}

::AXUIElementRef native(const AXUIElementRef& element) {
  const auto* ours = ofThisDesktop<MacElement>(element.get());
  return ours ? ours->get() : nullptr;
}

bool isGone(::AXUIElementRef application) {
  pid_t process = 0;
  return AXUIElementGetPid(application, &process) != kAXErrorSuccess || ::kill(process, 0) != 0;
}

// Elements count from the top of the main screen.
double fromTop(double y) {
  return CGDisplayBounds(CGMainDisplayID()).size.height - y;
}

} // namespace

AXUIElementRef MacAccessibility::applicationElement(std::int32_t processIdentifier) {
  return wrapped(AXUIElementCreateApplication(processIdentifier), Takes::keys);
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

// Deprecated, but there is no other call that types into one application as the user would.
#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Wdeprecated-declarations"
bool MacAccessibility::postKeyboardEvent(const AXUIElementRef& application,
                                         const KeyboardEvent& event) {
  const auto* receiver = ofThisDesktop<MacElement>(application.get());
  if (!receiver || !receiver->takesKeys()) // the whole system would take them, too
    return false;
  if (!receiver->get() || isGone(receiver->get()))
    return true;
  return AXUIElementPostKeyboardEvent(receiver->get(), event.character, event.keyCode,
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
