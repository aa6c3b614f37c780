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

  /// The number (AtspiRole) of the role of the process's element that has the keyboard; nothing
  /// when the process is not on the bus, or when it is not found by the deadline.
  [[nodiscard]] std::optional<std::uint32_t> focusedRole(std::int32_t process,
                                                         const QDeadlineTimer& deadline);

private:
  [[nodiscard]] bool connect(const QDeadlineTimer& deadline);

  QString address_; ///< of the bus that we are connected to; empty for none
};

} // namespace tavrel
