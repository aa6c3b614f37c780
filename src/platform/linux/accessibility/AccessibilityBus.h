#pragma once

#include <QDBusConnection>
#include <QPoint>
#include <QRect>
#include <QString>

#include <cstdint>
#include <optional>
#include <string>

class QDeadlineTimer;

namespace tavrel {

/// The bus on which applications show their elements (AT-SPI 2), where it is on already: nothing
/// here starts it.
class AccessibilityBus {
public:
  AccessibilityBus() = default;
  ~AccessibilityBus();
  AccessibilityBus(const AccessibilityBus&) = delete;
  AccessibilityBus& operator=(const AccessibilityBus&) = delete;

  /// The AX name of the role of what a process shows at a point of the screen, in its window that
  /// has this place; nothing when it shows nothing there, or not by the deadline.
  [[nodiscard]] std::optional<std::string>
  roleAt(QPoint point, std::int32_t process, const QRect& window, const QDeadlineTimer& deadline);

private:
  [[nodiscard]] bool connect(const QDeadlineTimer& deadline);

  QString address_; ///< of the bus that we are on; empty while we are on none
};

} // namespace tavrel
