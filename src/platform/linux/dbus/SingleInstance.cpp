#include "platform/linux/dbus/SingleInstance.h"

#include "platform/linux/dbus/BusName.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QLoggingCategory>

namespace tavrel {

namespace {
Q_LOGGING_CATEGORY(instanceLog, "tavrel.instance")
constexpr int answerTimeoutMsecs = 5000;
} // namespace

SingleInstance::SingleInstance() {
  QDBusConnection bus = QDBusConnection::sessionBus();
  if (!bus.isConnected()) {
    qCWarning(instanceLog, "no session bus: a second start would not be noticed");
    return;
  }
  first_ = bus.registerService(busName);
}

SingleInstance::~SingleInstance() {
  if (first_)
    QDBusConnection::sessionBus().unregisterService(busName);
}

bool SingleInstance::askFirstToPopUp() const {
  QDBusMessage call = QDBusMessage::createMethodCall(
      busName, busPath, QStringLiteral("org.freedesktop.Application"), QStringLiteral("Activate"));
  call.setAutoStartService(false);
  call << QVariantMap();
  const QDBusMessage answer =
      QDBusConnection::sessionBus().call(call, QDBus::Block, answerTimeoutMsecs);
  return answer.type() == QDBusMessage::ReplyMessage;
}

} // namespace tavrel
