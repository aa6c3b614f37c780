#include "platform/memory/MemoryAccessibility.h"

namespace tavrel {

namespace {
enum class ElementKind { application, systemWide, atPoint };

class MemoryElement final : public AXUIElement {
public:
  MemoryElement(MemoryAccessibility::Control& control, ElementKind ofKind, std::int32_t ofProcess)
      : kind(ofKind), process(ofProcess), control_(control) {
    ++control_.made;
    ++control_.alive;
  }
  ~MemoryElement() override { --control_.alive; }
  MemoryElement(const MemoryElement&) = delete;
  MemoryElement& operator=(const MemoryElement&) = delete;

  const ElementKind kind;
  const std::int32_t process;

private:
  MemoryAccessibility::Control& control_;
};

const MemoryElement* inside(const AXUIElementRef& element) {
  return dynamic_cast<const MemoryElement*>(element.get());
}
} // namespace

AXUIElementRef MemoryAccessibility::applicationElement(std::int32_t processIdentifier) {
  return std::make_shared<MemoryElement>(control, ElementKind::application, processIdentifier);
}

AXUIElementRef MemoryAccessibility::systemWideElement() {
  ++control.systemWideMade;
  return std::make_shared<MemoryElement>(control, ElementKind::systemWide, 0);
}

AXUIElementRef MemoryAccessibility::elementAt(const AXUIElementRef& root, Point point) {
  control.asked.push_back(point);
  if (!root || !control.hasElementAtPoint)
    return nullptr;
  return std::make_shared<MemoryElement>(control, ElementKind::atPoint, 0);
}

std::optional<PropertyList> MemoryAccessibility::role(const AXUIElementRef& element) {
  const MemoryElement* known = inside(element);
  return known && known->kind == ElementKind::atPoint ? control.roleAtPoint : std::nullopt;
}

bool MemoryAccessibility::postKeyboardEvent(const AXUIElementRef& application,
                                            const KeyboardEvent& event) {
  const MemoryElement* known = inside(application);
  if (!known || known->kind != ElementKind::application)
    return false;
  control.posted.push_back({known->process, event});
  if (control.onPost)
    control.onPost(control.posted.back());
  return true;
}

std::string keysAsText(const std::vector<MemoryAccessibility::Posted>& posted) {
  std::string text;
  for (const auto& [process, event] : posted) {
    text += (text.empty() ? "" : ", ") + std::to_string(event.keyCode);
    if (event.character != 0)
      text += std::string(" '") + static_cast<char>(event.character) + "'";
    text += event.direction == KeyDirection::down ? " down" : " up";
  }
  return text;
}

} // namespace tavrel
