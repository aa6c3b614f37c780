#include "platform/linux/AccessibilityBus.h"

#include "platform/linux/AccessibleRoles.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QDeadlineTimer>
#include <QVariant>

#include <algorithm>
#include <vector>

namespace tavrel {

namespace {

const QString connectionName = QStringLiteral("tavrel-accessibility");
const QString accessible = QStringLiteral("org.a11y.atspi.Accessible");
const QString component = QStringLiteral("org.a11y.atspi.Component");
const QString rootPath = QStringLiteral("/org/a11y/atspi/accessible/root");
const QString daemonName = QStringLiteral("org.freedesktop.DBus");

constexpr int deepest = 64; // elements within elements
constexpr std::uint32_t screenCoordinates = 0;
constexpr std::uint32_t manyLinesState = 1U << 17;

struct Element {
  QString owner;
  QString path;
  friend bool operator==(const Element&, const Element&) = default;
  [[nodiscard]] bool isNull() const {
    return owner.isEmpty() || path == QStringLiteral("/org/a11y/atspi/null");
  }
};

Element elementFrom(const QDBusArgument& argument) {
  Element element;
  QDBusObjectPath path;
  argument.beginStructure();
  argument >> element.owner >> path;
  argument.endStructure();
  element.path = path.path();
  return element;
}

std::optional<QDBusArgument> argumentOf(const QDBusMessage& answer, const QString& signature) {
  if (answer.type() != QDBusMessage::ReplyMessage || answer.signature() != signature)
    return std::nullopt;
  return answer.arguments().value(0).value<QDBusArgument>();
}

// One look at the elements of the bus, each question of which takes what time is left.
class AccessibleTree {
public:
  AccessibleTree(const QDBusConnection& bus, const QDeadlineTimer& deadline)
      : bus_(bus), deadline_(deadline) {}

  std::optional<Element> application(std::int32_t process) {
    const Element registry{QStringLiteral("org.a11y.atspi.Registry"), rootPath};
    for (const Element& each : children(registry))
      if (processOf(each.owner) == process)
        return each;
    return std::nullopt;
  }

  // Windows come in the order of their birth: menus after what they belong to.
  std::optional<Element> innermost(const Element& application, QPoint point) {
    std::vector<Element> windows = children(application);
    std::reverse(windows.begin(), windows.end());
    for (const Element& window : windows) {
      Element found = childAt(window, point);
      if (found.isNull())
        continue;
      for (int depth = 0; depth < deepest; ++depth) {
        const Element inner = childAt(found, point);
        if (inner.isNull() || inner == found)
          break;
        found = inner;
      }
      return found;
    }
    return std::nullopt;
  }

  AccessibleFacts facts(const Element& element) {
    return {roleOf(element), roleOf(parentOf(element)), hasManyLines(element)};
  }

private:
  QDBusMessage ask(const Element& element, const QString& interface, const QString& method,
                   const QVariantList& arguments = {}) {
    QDBusMessage call =
        QDBusMessage::createMethodCall(element.owner, element.path, interface, method);
    call.setAutoStartService(false);
    call.setArguments(arguments);
    const auto left = static_cast<int>(deadline_.remainingTime());
    return left > 0 ? bus_.call(call, QDBus::Block, left) : QDBusMessage();
  }

  std::vector<Element> children(const Element& element) {
    std::vector<Element> all;
    const auto list = argumentOf(ask(element, accessible, QStringLiteral("GetChildren")),
                                 QStringLiteral("a(so)"));
    if (!list)
      return all;
    list->beginArray();
    while (!list->atEnd())
      all.push_back(elementFrom(*list));
    list->endArray();
    return all;
  }

  std::int32_t processOf(const QString& owner) {
    const QDBusMessage answer =
        ask({daemonName, QStringLiteral("/org/freedesktop/DBus")}, daemonName,
            QStringLiteral("GetConnectionUnixProcessID"), {owner});
    return static_cast<std::int32_t>(answer.arguments().value(0).toUInt()); // 0 for an error
  }

  Element childAt(const Element& element, QPoint point) {
    const auto child =
        argumentOf(ask(element, component, QStringLiteral("GetAccessibleAtPoint"),
                       {point.x(), point.y(), QVariant::fromValue(screenCoordinates)}),
                   QStringLiteral("(so)"));
    return child ? elementFrom(*child) : Element();
  }

  std::uint32_t roleOf(const Element& element) {
    if (element.isNull())
      return 0;
    const QDBusMessage answer = ask(element, accessible, QStringLiteral("GetRole"));
    return answer.type() == QDBusMessage::ReplyMessage ? answer.arguments().value(0).toUInt() : 0;
  }

  Element parentOf(const Element& element) {
    const QDBusMessage answer = ask(element, QStringLiteral("org.freedesktop.DBus.Properties"),
                                    QStringLiteral("Get"), {accessible, QStringLiteral("Parent")});
    if (answer.type() != QDBusMessage::ReplyMessage)
      return {};
    const QVariant value = answer.arguments().value(0).value<QDBusVariant>().variant();
    return value.canConvert<QDBusArgument>() ? elementFrom(value.value<QDBusArgument>())
                                             : Element();
  }

  bool hasManyLines(const Element& element) {
    const QDBusMessage answer = ask(element, accessible, QStringLiteral("GetState"));
    const auto list = argumentOf(answer, QStringLiteral("au"));
    QList<std::uint32_t> states;
    if (list)
      *list >> states;
    return !states.empty() && (states.front() & manyLinesState) != 0;
  }

  QDBusConnection bus_;
  const QDeadlineTimer& deadline_;
};

QString addressOfBus(const QDeadlineTimer& deadline) {
  QDBusMessage call = QDBusMessage::createMethodCall(
      QStringLiteral("org.a11y.Bus"), QStringLiteral("/org/a11y/bus"),
      QStringLiteral("org.a11y.Bus"), QStringLiteral("GetAddress"));
  call.setAutoStartService(false);
  const QDBusConnection session = QDBusConnection::sessionBus();
  const auto left = static_cast<int>(deadline.remainingTime());
  if (!session.isConnected() || left <= 0)
    return {};
  const QDBusMessage answer = session.call(call, QDBus::Block, left);
  return answer.type() == QDBusMessage::ReplyMessage ? answer.arguments().value(0).toString()
                                                     : QString();
}

} // namespace

AccessibilityBus::~AccessibilityBus() {
  if (!address_.isEmpty())
    QDBusConnection::disconnectFromBus(connectionName);
}

bool AccessibilityBus::connect(const QDeadlineTimer& deadline) {
  if (!address_.isEmpty() && QDBusConnection(connectionName).isConnected())
    return true;
  if (!address_.isEmpty())
    QDBusConnection::disconnectFromBus(connectionName);
  address_ = addressOfBus(deadline);
  return !address_.isEmpty() &&
         QDBusConnection::connectToBus(address_, connectionName).isConnected();
}

std::optional<std::string> AccessibilityBus::roleAt(QPoint point, std::int32_t process,
                                                    const QDeadlineTimer& deadline) {
  if (!connect(deadline))
    return std::nullopt;
  AccessibleTree tree(QDBusConnection(connectionName), deadline);
  const auto application = tree.application(process);
  const auto element = application ? tree.innermost(*application, point) : std::nullopt;
  if (!element)
    return std::nullopt;
  const AccessibleFacts facts = tree.facts(*element);
  return deadline.hasExpired() || facts.role == 0 ? std::nullopt
                                                  : std::optional(std::string(axRole(facts)));
}

} // namespace tavrel
