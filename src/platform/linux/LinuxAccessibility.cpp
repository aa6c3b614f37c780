#include "platform/linux/LinuxAccessibility.h"

#include <string>
#include <unistd.h>

namespace tavrel {

namespace {

struct ProcessElement final : AXUIElement {
  explicit ProcessElement(std::int32_t ofProcess) : process(ofProcess) {}
  std::int32_t process;
};

struct SystemWideElement final : AXUIElement {};

bool processIsThere(std::int32_t process) {
  return process == 0 || ::access(("/proc/" + std::to_string(process)).c_str(), F_OK) == 0;
}

} // namespace

AXUIElementRef LinuxAccessibility::applicationElement(std::int32_t processIdentifier) {
  return std::make_shared<ProcessElement>(processIdentifier);
}

AXUIElementRef LinuxAccessibility::systemWideElement() {
  return std::make_shared<SystemWideElement>();
}

AXUIElementRef LinuxAccessibility::elementAt(const AXUIElementRef&, Point) {
  return nullptr;
}

std::optional<PropertyList> LinuxAccessibility::role(const AXUIElementRef&) {
  return std::nullopt;
}

bool LinuxAccessibility::postKeyboardEvent(const AXUIElementRef& application,
                                           const KeyboardEvent& event) {
  const auto* element = dynamic_cast<const ProcessElement*>(application.get());
  if (element == nullptr)
    return false;
  return !processIsThere(element->process) || poster_.post(element->process, event);
}

} // namespace tavrel
