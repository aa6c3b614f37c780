#include "platform/linux/dbus/LinuxDistributedNotificationCenter.h"

#include "platform/linux/dbus/DBusSignalReceiver.h"
#include "platform/linux/dbus/DBusValues.h"

#include <QDBusConnection>
#include <QLoggingCategory>
#include <QTimer>

namespace tavrel {

namespace {
Q_LOGGING_CATEGORY(notificationsLog, "tavrel.notifications")

constexpr const char* centerPath = "/qorvane/tavrel/DistributedNotifications";
constexpr const char* centerInterface = "qorvane.tavrel.DistributedNotifications";
constexpr const char* signalName = "Posted";
constexpr const char* signature = "ssa{sv}";

// Qt 6.4 holds back signals that reach the shared connection before the event loop starts, and lets
// later ones overtake them. A connection of our own keeps the order.
QDBusConnection ownConnection() {
  return QDBusConnection::connectToBus(QDBusConnection::SessionBus,
                                       LinuxDistributedNotificationCenter::connectionName);
}

std::optional<std::string> objectNamed(const QString& name) {
  return name.isEmpty() ? std::nullopt : std::optional(name.toStdString());
}
} // namespace

LinuxDistributedNotificationCenter::LinuxDistributedNotificationCenter(
    std::function<bool()> isHeldBack)
    : isHeldBack_(std::move(isHeldBack)),
      receiver_(std::make_unique<DBusSignalReceiver>(
          [this](const QDBusMessage& message) { receive(message); })) {
  if (!ownConnection().connect(QString(), centerPath, centerInterface, signalName, receiver_.get(),
                               SLOT(receive(QDBusMessage))))
    qCWarning(notificationsLog, "no session bus: other programs cannot be heard");
}

LinuxDistributedNotificationCenter::~LinuxDistributedNotificationCenter() = default;

void LinuxDistributedNotificationCenter::receive(const QDBusMessage& message) {
  if (message.signature() != signature) {
    qCWarning(notificationsLog, "a notification of another form was ignored");
    return;
  }
  const DBusPropertyList userInfo = propertyListFromDBus(message.arguments().at(2));
  if (!userInfo.isWhole)
    qCWarning(notificationsLog, "values of foreign kinds were left out of a notification");
  deliver({message.arguments().at(1).toString().toStdString(),
           objectNamed(message.arguments().at(0).toString()), *userInfo.value->dictionary()});
}

void LinuxDistributedNotificationCenter::deliver(Notification notification) {
  waiting_.push_back(std::move(notification));
  deliverWaiting();
}

void LinuxDistributedNotificationCenter::resume() {
  QTimer::singleShot(0, receiver_.get(), [this] { deliverWaiting(); });
}

void LinuxDistributedNotificationCenter::deliverWaiting() {
  if (delivering_)
    return;
  delivering_ = true;
  while (!waiting_.empty() && !isHeldBack_()) {
    const Notification next = std::move(waiting_.front());
    waiting_.pop_front();
    center_.post(next);
  }
  delivering_ = false;
}

void LinuxDistributedNotificationCenter::post(const Notification& notification) {
  const auto userInfo = dbusFromPropertyList(PropertyList(notification.userInfo));
  QDBusMessage message = QDBusMessage::createSignal(centerPath, centerInterface, signalName);
  message << QString::fromStdString(notification.object.value_or(""))
          << QString::fromStdString(notification.name) << userInfo.value_or(QVariantMap());
  if (!userInfo || !ownConnection().send(message))
    qCWarning(notificationsLog, "a notification could not be sent");
}

} // namespace tavrel
