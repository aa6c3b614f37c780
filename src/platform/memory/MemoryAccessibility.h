#pragma once

#include "platform/Accessibility.h"

#include <functional>
#include <string>
#include <vector>

namespace tavrel {

/// Elements that only have a name, a role where a test gives one, and a log of the keys they got.
class MemoryAccessibility final : public Accessibility {
public:
  struct Posted {
    std::int32_t processIdentifier = 0; ///< of the application that got it
    KeyboardEvent event;
  };

  struct Control {
    std::vector<Posted> posted;
    std::function<void(const Posted&)> onPost; ///< the application's answer to each key
    bool hasElementAtPoint = true;
    std::optional<PropertyList> roleAtPoint;
    std::vector<Point> asked; ///< points that elements were asked for
    int made = 0;             ///< elements made so far
    int alive = 0;            ///< of them, not released yet
    int systemWideMade = 0;
  };
  Control control;

  AXUIElementRef applicationElement(std::int32_t processIdentifier) override;
  AXUIElementRef systemWideElement() override;
  AXUIElementRef elementAt(const AXUIElementRef& root, Point point) override;
  std::optional<PropertyList> role(const AXUIElementRef& element) override;
  bool postKeyboardEvent(const AXUIElementRef& application, const KeyboardEvent& event) override;
};

/// The posted keys as text, as "55 down, 8 'c' down": a modifier by its code alone.
[[nodiscard]] std::string keysAsText(const std::vector<MemoryAccessibility::Posted>& posted);

} // namespace tavrel
