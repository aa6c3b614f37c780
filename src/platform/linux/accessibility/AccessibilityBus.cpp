#include "platform/linux/accessibility/AccessibilityBus.h"

#include "platform/linux/accessibility/AccessibleTree.h"
#include "platform/linux/dbus/BusProbe.h"

#include <QDBusMessage>
#include <QDeadlineTimer>

namespace tavrel {

namespace {

const QString connectionName = QStringLiteral("tavrel-accessibility");

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
  return !address_.isEmpty() && busAnswers(address_, deadline) &&
         QDBusConnection::connectToBus(address_, connectionName).isConnected();
}

std::optional<std::string> AccessibilityBus::roleAt(QPoint point, std::int32_t process,
                                                    const QRect& window,
                                                    const QDeadlineTimer& deadline) {
  if (!connect(deadline))
    return std::nullopt;
  AccessibleTree tree(QDBusConnection(connectionName), deadline);
  const auto application = tree.application(process);
  const auto element = application ? tree.elementAt(*application, window, point) : std::nullopt;
  if (!element)
    return std::nullopt;
  const AccessibleFacts facts = tree.facts(*element);
  return deadline.hasExpired() || facts.role == 0 ? std::nullopt
                                                  : std::optional(std::string(axRole(facts)));
}

std::optional<std::vector<std::uint32_t>>
AccessibilityBus::focusedRoles(std::int32_t process, const QDeadlineTimer& deadline) {
  if (!connect(deadline))
    return std::nullopt;
  AccessibleTree tree(QDBusConnection(connectionName), deadline);
  const auto application = tree.application(process);
  if (!application)
    return std::nullopt;
  std::vector<std::uint32_t> roles;
  for (const AccessibleElement& element : tree.focused(*application))
    roles.push_back(tree.roleOf(element));
  return deadline.hasExpired() ? std::nullopt : std::optional(roles);
}

} // namespace tavrel
