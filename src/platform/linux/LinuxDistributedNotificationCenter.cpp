#include "platform/linux/LinuxDistributedNotificationCenter.h"

#include "platform/linux/DBusSignalReceiver.h"
#include "platform/linux/DBusValues.h"

#include <QDBusConnection>
#include <QLoggingCategory>

namespace tavrel {

namespace {
Q_LOGGING_CATEGORY(notificationsLog, "tavrel.notifications")

constexpr const char* path = "/qorvane/tavrel/DistributedNotifications";
constexpr const char* interface = "qorvane.tavrel.DistributedNotifications";
constexpr const char* signalName = "Posted";
constexpr const char* signature = "ssa{sv}";
} // namespace

LinuxDistributedNotificationCenter::LinuxDistributedNotificationCenter()
    : receiver_(std::make_unique<DBusSignalReceiver>(
          [this](const QDBusMessage& message) { receive(message); })) {
  QDBusConnection bus = QDBusConnection::sessionBus();
  if (!bus.connect(QString(), path, interface, signalName, receiver_.get(),
                   SLOT(receive(QDBusMessage))))
    qCWarning(notificationsLog, "no session bus: other programs cannot be heard");
}

LinuxDistributedNotificationCenter::~LinuxDistributedNotificationCenter() = default;

void LinuxDistributedNotificationCenter::receive(const QDBusMessage& message) {
  if (message.signature() != signature) {
    qCWarning(notificationsLog, "a notification of another form was ignored");
    return;
  }
  const auto userInfo = propertyListFromDBus(message.arguments().at(2));
  if (!userInfo || !userInfo->dictionary()) {
    qCWarning(notificationsLog, "a notification with values of foreign kinds was ignored");
    return;
  }
  center_.post({message.arguments().at(1).toString().toStdString(),
                message.arguments().at(0).toString().toStdString(), *userInfo->dictionary()});
}

void LinuxDistributedNotificationCenter::post(const Notification& notification) {
  QDBusMessage message = QDBusMessage::createSignal(path, interface, signalName);
  message << QString::fromStdString(notification.object.value_or(""))
          << QString::fromStdString(notification.name)
          << dbusFromPropertyList(PropertyList(notification.userInfo));
  if (!QDBusConnection::sessionBus().send(message))
    qCWarning(notificationsLog, "a notification could not be sent");
}

} // namespace tavrel
