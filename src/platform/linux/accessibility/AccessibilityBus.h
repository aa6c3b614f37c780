#pragma once

#include <QDBusConnection>
#include <QPoint>
#include <QRect>
#include <QString>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

class QDeadlineTimer;

namespace tavrel {

/// The accessibility bus (AT-SPI 2), on which applications expose their elements. It is used only
/// where it runs already; nothing here starts it.
class AccessibilityBus {
public:
  AccessibilityBus() = default;
  ~AccessibilityBus();
  AccessibilityBus(const AccessibilityBus&) = delete;
  AccessibilityBus& operator=(const AccessibilityBus&) = delete;

  /// The AX role of the element at a point of the screen, in the window of the process that has
  /// this geometry. Nothing when there is no element, or when the answer has not come by the
  /// deadline.
  [[nodiscard]] std::optional<std::string>
  roleAt(QPoint point, std::int32_t process, const QRect& window, const QDeadlineTimer& deadline);

  /// The roles (AtspiRole) of the process's elements that say that they have the keyboard; nothing
  /// when the process is not on the bus or does not answer by the deadline.
  [[nodiscard]] std::optional<std::vector<std::uint32_t>>
  focusedRoles(std::int32_t process, const QDeadlineTimer& deadline);

private:
  [[nodiscard]] bool connect(const QDeadlineTimer& deadline);

  QString address_; ///< of the bus that we are connected to; empty for none
};

} // namespace tavrel
