#include "platform/linux/accessibility/AccessibleTree.h"

#include "platform/linux/accessibility/FocusRule.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVariant>

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace tavrel {

namespace {
const QString accessible = QStringLiteral("org.a11y.atspi.Accessible");
const QString component = QStringLiteral("org.a11y.atspi.Component");
const QString rootPath = QStringLiteral("/org/a11y/atspi/accessible/root");
const QString daemonName = QStringLiteral("org.freedesktop.DBus");

constexpr int depthLimit = 64; // of elements within elements
constexpr int heightLimit = 4; // a label in a box in a box in a button
constexpr std::uint32_t screenCoordinates = 0;

// AtspiStateType, as bits.
constexpr std::uint64_t activeState = 1ULL << 1U;
constexpr std::uint64_t focusedState = 1ULL << 12U;
constexpr std::uint64_t manyLinesState = 1ULL << 17U;
constexpr std::uint64_t showingState = 1ULL << 25U;

AccessibleElement elementFrom(const QDBusArgument& argument) {
  AccessibleElement element;
  QDBusObjectPath path;
  argument.beginStructure();
  argument >> element.owner >> path;
  argument.endStructure();
  element.path = path.path();
  return element;
}

std::vector<AccessibleElement> elementsFrom(const QDBusArgument& list) {
  std::vector<AccessibleElement> all;
  list.beginArray();
  while (!list.atEnd())
    all.push_back(elementFrom(list));
  list.endArray();
  return all;
}

std::optional<QDBusArgument> argumentOf(const QDBusMessage& reply, const QString& signature) {
  if (reply.type() != QDBusMessage::ReplyMessage || reply.signature() != signature)
    return std::nullopt;
  return reply.arguments().value(0).value<QDBusArgument>();
}

int distanceBetween(const QRect& one, const QRect& other) {
  return (one.topLeft() - other.topLeft()).manhattanLength() +
         (one.bottomRight() - other.bottomRight()).manhattanLength();
}
} // namespace

bool AccessibleElement::isNull() const {
  return owner.isEmpty() || path == QStringLiteral("/org/a11y/atspi/null");
}

std::optional<AccessibleElement> AccessibleTree::application(std::int32_t process) {
  const AccessibleElement registry{QStringLiteral("org.a11y.atspi.Registry"), rootPath};
  for (const AccessibleElement& each : children(registry))
    if (processOf(each.owner) == process)
      return each;
  return std::nullopt;
}

std::optional<AccessibleElement> AccessibleTree::elementAt(const AccessibleElement& application,
                                                           const QRect& window, QPoint point) {
  for (const AccessibleElement& each : windows(application, window)) {
    const AccessibleElement found = childAt(each, point);
    if (!found.isNull())
      return controlAround(innermost(found, point));
  }
  return std::nullopt;
}

// For toolkits that answer with the next level: down to the first control.
AccessibleElement AccessibleTree::innermost(AccessibleElement element, QPoint point) {
  for (int depth = 0; depth < depthLimit && !isControl(roleOf(element)); ++depth) {
    const AccessibleElement inner = childAt(element, point);
    if (inner.isNull() || inner == element)
      break;
    element = inner;
  }
  return element;
}

// For toolkits that answer with the innermost element at once: up to the control that it lies in.
AccessibleElement AccessibleTree::controlAround(const AccessibleElement& element) {
  AccessibleElement around = element;
  for (int height = 0; height <= heightLimit && !around.isNull(); ++height) {
    if (isControl(roleOf(around)))
      return around;
    around = parentOf(around);
  }
  return element;
}

// An application lists its windows in the order of their creation: menus come after their window,
// and lie above it.
std::vector<AccessibleElement> AccessibleTree::windows(const AccessibleElement& application,
                                                       const QRect& nearest) {
  std::vector<AccessibleElement> all = children(application);
  std::reverse(all.begin(), all.end());
  if (all.size() < 2)
    return all;
  std::vector<std::pair<int, AccessibleElement>> byDistance;
  for (AccessibleElement& each : all)
    byDistance.emplace_back(distanceBetween(extents(each), nearest), std::move(each));
  std::ranges::stable_sort(byDistance, {}, [](const auto& each) { return each.first; });
  all.clear();
  for (auto& each : byDistance)
    all.push_back(std::move(each.second));
  return all;
}

AccessibleFacts AccessibleTree::facts(const AccessibleElement& element) {
  return {roleOf(element), roleOf(parentOf(element)), hasManyLines(element)};
}

QDBusMessage AccessibleTree::call(const AccessibleElement& element, const QString& interface,
                                  const QString& method, const QVariantList& arguments) {
  QDBusMessage message =
      QDBusMessage::createMethodCall(element.owner, element.path, interface, method);
  message.setAutoStartService(false);
  message.setArguments(arguments);
  const auto left = static_cast<int>(deadline_.remainingTime());
  return left > 0 ? bus_.call(message, QDBus::Block, left) : QDBusMessage();
}

std::vector<AccessibleElement> AccessibleTree::children(const AccessibleElement& element) {
  const auto list =
      argumentOf(call(element, accessible, QStringLiteral("GetChildren")), QStringLiteral("a(so)"));
  return list ? elementsFrom(*list) : std::vector<AccessibleElement>();
}

std::int32_t AccessibleTree::processOf(const QString& owner) {
  const QDBusMessage reply = call({daemonName, QStringLiteral("/org/freedesktop/DBus")}, daemonName,
                                  QStringLiteral("GetConnectionUnixProcessID"), {owner});
  return static_cast<std::int32_t>(reply.arguments().value(0).toUInt()); // 0 for an error
}

QRect AccessibleTree::extents(const AccessibleElement& element) {
  const auto reply = argumentOf(call(element, component, QStringLiteral("GetExtents"),
                                     {QVariant::fromValue(screenCoordinates)}),
                                QStringLiteral("(iiii)"));
  int x = 0, y = 0, width = 0, height = 0;
  if (!reply)
    return {};
  reply->beginStructure();
  *reply >> x >> y >> width >> height;
  reply->endStructure();
  return {x, y, width, height};
}

AccessibleElement AccessibleTree::childAt(const AccessibleElement& element, QPoint point) {
  const auto child =
      argumentOf(call(element, component, QStringLiteral("GetAccessibleAtPoint"),
                      {point.x(), point.y(), QVariant::fromValue(screenCoordinates)}),
                 QStringLiteral("(so)"));
  return child ? elementFrom(*child) : AccessibleElement();
}

std::uint32_t AccessibleTree::roleOf(const AccessibleElement& element) {
  if (element.isNull())
    return 0;
  const QDBusMessage reply = call(element, accessible, QStringLiteral("GetRole"));
  return reply.type() == QDBusMessage::ReplyMessage ? reply.arguments().value(0).toUInt() : 0;
}

AccessibleElement AccessibleTree::parentOf(const AccessibleElement& element) {
  const QDBusMessage reply = call(element, QStringLiteral("org.freedesktop.DBus.Properties"),
                                  QStringLiteral("Get"), {accessible, QStringLiteral("Parent")});
  if (reply.type() != QDBusMessage::ReplyMessage)
    return {};
  const QVariant value = reply.arguments().value(0).value<QDBusVariant>().variant();
  return value.canConvert<QDBusArgument>() ? elementFrom(value.value<QDBusArgument>())
                                           : AccessibleElement();
}

std::uint64_t AccessibleTree::states(const AccessibleElement& element) {
  const QDBusMessage reply = call(element, accessible, QStringLiteral("GetState"));
  const auto list = argumentOf(reply, QStringLiteral("au"));
  QList<std::uint32_t> halves;
  if (list)
    *list >> halves;
  return halves.value(0) | std::uint64_t{halves.value(1)} << 32U;
}

bool AccessibleTree::hasManyLines(const AccessibleElement& element) {
  return (states(element) & manyLinesState) != 0;
}

std::vector<AccessibleElement> AccessibleTree::focused(const AccessibleElement& application) {
  for (const AccessibleElement& window : children(application))
    if ((states(window) & activeState) != 0) {
      const auto found = focusedMatches(window);
      return found ? *found : focusedBelow(window);
    }
  return {};
}

// One call where the toolkit can search (GTK 3).
std::optional<std::vector<AccessibleElement>>
AccessibleTree::focusedMatches(const AccessibleElement& window) {
  constexpr std::uint32_t anyOrder = 1; // ATSPI_Collection_SORT_ORDER_CANONICAL
  constexpr int all = 0;
  const auto list = argumentOf(call(window, QStringLiteral("org.a11y.atspi.Collection"),
                                    QStringLiteral("GetMatches"),
                                    {QVariant::fromValue(focusRule()), anyOrder, all, true}),
                               QStringLiteral("a(so)"));
  return list ? std::optional(elementsFrom(*list)) : std::nullopt;
}

// Elements that do not show hold none that has the keyboard.
std::vector<AccessibleElement> AccessibleTree::focusedBelow(const AccessibleElement& window) {
  std::vector<AccessibleElement> found;
  std::vector<AccessibleElement> left = children(window);
  while (!left.empty() && !deadline_.hasExpired()) {
    const AccessibleElement element = left.back();
    left.pop_back();
    const std::uint64_t state = states(element);
    if ((state & focusedState) != 0)
      found.push_back(element);
    if ((state & showingState) == 0)
      continue;
    const std::vector<AccessibleElement> below = children(element);
    left.insert(left.end(), below.begin(), below.end());
  }
  return found;
}

} // namespace tavrel
