#include "platform/linux/x11/selection/LinuxAccessibility.h"

#include "platform/linux/x11/windows/WindowAtPoint.h"

#include <QDeadlineTimer>
#include <QGuiApplication>
#include <QScreen>

#include <algorithm>
#include <cmath>
#include <string>
#include <unistd.h>

namespace tavrel {

namespace {

struct ProcessElement final : AXUIElement {
  explicit ProcessElement(std::int32_t ofProcess) : process(ofProcess) {}
  std::int32_t process;
};

struct SystemWideElement final : AXUIElement {};

struct ElementAtPoint final : AXUIElement {
  explicit ElementAtPoint(std::string ofRole) : role(std::move(ofRole)) {}
  std::string role;
};

constexpr int searchTimeout = 100; // in milliseconds

std::int16_t pixelOf(double value) {
  constexpr double farthest = 32767; // of the protocol
  return std::isnan(value)
             ? std::int16_t{0}
             : static_cast<std::int16_t>(std::lround(std::clamp(value, -farthest, farthest)));
}

// The ports count from the lowest row of points of the main screen upwards.
ScreenPixel pixelAt(Point point) {
  const QScreen& main = *QGuiApplication::primaryScreen();
  const QRect area = main.geometry(); // its corner is in pixels, its size in points
  const double scale = main.devicePixelRatio();
  return {pixelOf(area.left() + point.x * scale),
          pixelOf(area.top() + (area.height() - 1 - point.y) * scale)};
}

// An application element stands for its own process only, the system-wide one for all.
bool covers(const AXUIElement* root, std::int32_t process) {
  const auto* application = dynamic_cast<const ProcessElement*>(root);
  return application ? application->process == process
                     : dynamic_cast<const SystemWideElement*>(root) != nullptr;
}

bool processIsThere(std::int32_t process) {
  return process == 0 || ::access(("/proc/" + std::to_string(process)).c_str(), F_OK) == 0;
}

} // namespace

LinuxAccessibility::LinuxAccessibility(const AccessibilityDesktop& desktop)
    : windows_(desktop.windows), poster_(desktop.windows, desktop.own),
      selectionKeys_({desktop.registry, desktop.windows, bus_, poster_, desktop.clipboard,
                      desktop.exceptions, desktop.answered}) {
  poster_.setSelectionHandler([this](KeyPurpose purpose, std::int32_t process) {
    purpose == KeyPurpose::copySelection ? selectionKeys_.copy(process)
                                         : selectionKeys_.paste(process);
  });
}

AXUIElementRef LinuxAccessibility::applicationElement(std::int32_t processIdentifier) {
  return std::make_shared<ProcessElement>(processIdentifier);
}

AXUIElementRef LinuxAccessibility::systemWideElement() {
  return std::make_shared<SystemWideElement>();
}

// Our own windows are left out: this thread would have to answer while it waits for the answer.
AXUIElementRef LinuxAccessibility::elementAt(const AXUIElementRef& root, Point point) {
  if (!QGuiApplication::primaryScreen())
    return nullptr;
  const QDeadlineTimer deadline(searchTimeout);
  const ScreenPixel pixel = pixelAt(point);
  const WindowId window = windowAt(pixel, windows_);
  const auto facts = window != 0 ? windows_.facts(window) : std::nullopt;
  if (!facts || !covers(root.get(), facts->pid) || facts->pid == ::getpid())
    return nullptr;
  if (facts->kind == WindowKind::dock)
    return std::make_shared<ElementAtPoint>("AXDockItem");
  const auto role = bus_.roleAt({pixel.x, pixel.y}, facts->pid, placeOf(window), deadline);
  return role ? std::make_shared<ElementAtPoint>(*role) : nullptr;
}

std::optional<PropertyList> LinuxAccessibility::role(const AXUIElementRef& element) {
  const auto* found = dynamic_cast<const ElementAtPoint*>(element.get());
  return found ? std::optional<PropertyList>(found->role) : std::nullopt;
}

bool LinuxAccessibility::postKeyboardEvent(const AXUIElementRef& application,
                                           const KeyboardEvent& event) {
  const auto* element = dynamic_cast<const ProcessElement*>(application.get());
  if (element == nullptr)
    return false;
  return !processIsThere(element->process) || poster_.post(element->process, event);
}

} // namespace tavrel
