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

std::optional<std::uint32_t> AccessibilityBus::focusedRole(std::int32_t process,
                                                           const QDeadlineTimer& deadline) {
  if (!connect(deadline))
    return std::nullopt;
  AccessibleTree tree(QDBusConnection(connectionName), deadline);
  const auto application = tree.application(process);
  const auto element = application ? tree.focused(*application) : std::nullopt;
  const std::uint32_t role = element ? tree.facts(*element).role : 0;
  return role == 0 ? std::nullopt : std::optional(role);
}

} // namespace tavrel
