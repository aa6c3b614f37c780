#pragma once

#include "platform/linux/accessibility/AccessibleRoles.h"

#include <QDBusConnection>
#include <QDeadlineTimer>
#include <QPoint>
#include <QRect>
#include <QString>
#include <QVariant>

#include <cstdint>
#include <optional>
#include <vector>

namespace tavrel {

/// An element that an application shows on the accessibility bus.
struct AccessibleElement {
  QString owner;
  QString path;
  friend bool operator==(const AccessibleElement&, const AccessibleElement&) = default;
  [[nodiscard]] bool isNull() const;
};

/// One look at the elements of the bus. Each question takes what time is left; from the deadline on
/// nothing is found.
class AccessibleTree {
public:
  AccessibleTree(const QDBusConnection& bus, const QDeadlineTimer& deadline)
      : bus_(bus), deadline_(deadline) {}

  [[nodiscard]] std::optional<AccessibleElement> application(std::int32_t process);
  /// What a person would say is there: a control rather than the picture on it, else the innermost
  /// element. Of several windows the one counts that lies nearest to the place given.
  [[nodiscard]] std::optional<AccessibleElement> elementAt(const AccessibleElement& application,
                                                           const QRect& window, QPoint point);
  [[nodiscard]] AccessibleFacts facts(const AccessibleElement& element);

private:
  [[nodiscard]] QDBusMessage ask(const AccessibleElement& element, const QString& interface,
                                 const QString& method, const QVariantList& arguments = {});
  [[nodiscard]] std::vector<AccessibleElement> children(const AccessibleElement& element);
  [[nodiscard]] std::vector<AccessibleElement> windows(const AccessibleElement& application,
                                                       const QRect& nearest);
  [[nodiscard]] std::int32_t processOf(const QString& owner);
  [[nodiscard]] QRect extents(const AccessibleElement& element);
  [[nodiscard]] AccessibleElement childAt(const AccessibleElement& element, QPoint point);
  [[nodiscard]] AccessibleElement innermost(AccessibleElement element, QPoint point);
  [[nodiscard]] AccessibleElement controlAround(const AccessibleElement& element);
  [[nodiscard]] std::uint32_t roleOf(const AccessibleElement& element);
  [[nodiscard]] AccessibleElement parentOf(const AccessibleElement& element);
  [[nodiscard]] bool hasManyLines(const AccessibleElement& element);

  QDBusConnection bus_;
  const QDeadlineTimer& deadline_;
};

} // namespace tavrel
