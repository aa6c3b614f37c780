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

/// An element on the accessibility bus, by the bus name of its application and its object path.
struct AccessibleElement {
  QString owner;
  QString path;
  friend bool operator==(const AccessibleElement&, const AccessibleElement&) = default;
  [[nodiscard]] bool isNull() const;
};

/// Reads elements from the bus, with blocking calls that all end at one deadline; after it nothing
/// is found.
class AccessibleTree {
public:
  AccessibleTree(const QDBusConnection& bus, const QDeadlineTimer& deadline)
      : bus_(bus), deadline_(deadline) {}

  [[nodiscard]] std::optional<AccessibleElement> application(std::int32_t process);
  /// The element that a user would name: a control rather than the image on it, else the innermost
  /// element. Among several windows of the application, the one whose geometry is nearest to
  /// `window`.
  [[nodiscard]] std::optional<AccessibleElement> elementAt(const AccessibleElement& application,
                                                           const QRect& window, QPoint point);
  /// The elements of the application's active window that say that they have the keyboard: where Qt
  /// shows several lists, the current item of each one does.
  [[nodiscard]] std::vector<AccessibleElement> focused(const AccessibleElement& application);
  [[nodiscard]] std::uint32_t roleOf(const AccessibleElement& element);
  [[nodiscard]] AccessibleFacts facts(const AccessibleElement& element);

private:
  [[nodiscard]] QDBusMessage call(const AccessibleElement& element, const QString& interface,
                                  const QString& method, const QVariantList& arguments = {});
  [[nodiscard]] std::vector<AccessibleElement> children(const AccessibleElement& element);
  [[nodiscard]] std::vector<AccessibleElement> windows(const AccessibleElement& application,
                                                       const QRect& nearest);
  [[nodiscard]] std::int32_t processOf(const QString& owner);
  [[nodiscard]] QRect extents(const AccessibleElement& element);
  [[nodiscard]] AccessibleElement childAt(const AccessibleElement& element, QPoint point);
  [[nodiscard]] AccessibleElement innermost(AccessibleElement element, QPoint point);
  [[nodiscard]] AccessibleElement controlAround(const AccessibleElement& element);
  [[nodiscard]] AccessibleElement parentOf(const AccessibleElement& element);
  [[nodiscard]] std::optional<std::vector<AccessibleElement>>
  focusedMatches(const AccessibleElement& window);
  [[nodiscard]] std::vector<AccessibleElement> focusedBelow(const AccessibleElement& window);
  [[nodiscard]] std::uint64_t states(const AccessibleElement& element);
  [[nodiscard]] bool hasManyLines(const AccessibleElement& element);

  QDBusConnection bus_;
  const QDeadlineTimer& deadline_;
};

} // namespace tavrel
