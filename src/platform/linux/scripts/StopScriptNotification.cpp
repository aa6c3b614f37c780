#include "platform/linux/scripts/StopScriptNotification.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingReply>
#include <QDeadlineTimer>
#include <QStringList>
#include <QThread>
#include <QVariantMap>

namespace tavrel {
namespace {

constexpr const char* serverName = "org.freedesktop.Notifications";
constexpr const char* serverPath = "/org/freedesktop/Notifications";
constexpr const char* stopAction = "stop";
constexpr int expireTimeout = 0; // never

// A service that hangs must not hold up the end of the script.
constexpr int serviceTimeoutMsecs = 1000;
constexpr unsigned pollIntervalMsecs = 5;

// Not the connection of the main thread, so that neither waits for the other's calls.
QDBusConnection bus() {
  return QDBusConnection::connectToBus(QDBusConnection::SessionBus, "tavrel-run-notice");
}

QDBusMessage call(const char* method) {
  return QDBusMessage::createMethodCall(serverName, serverPath, serverName, method);
}

} // namespace

void StopScriptNotification::show() {
  bus().connect(serverName, serverPath, serverName, "ActionInvoked", this,
                SLOT(onAction(uint, QString)));
  QDBusMessage message = call("Notify");
  message << "Tavrel" << 0U << "qorvane.tavrel.Tavrel" << name_
          << tr("The script has been running for a while; Tavrel waits for it.")
          << QStringList{stopAction, tr("Stop")} << QVariantMap() << expireTimeout;
  request_ = bus().asyncCall(message);
}

void StopScriptNotification::close() {
  if (!request_)
    return;
  const QDeadlineTimer deadline(serviceTimeoutMsecs);
  while (!request_->isFinished() && !deadline.hasExpired())
    QThread::msleep(pollIntervalMsecs);
  const unsigned id = notificationId();
  if (id == 0)
    return;
  QDBusMessage message = call("CloseNotification");
  message << id;
  (void)bus().call(message, QDBus::Block, serviceTimeoutMsecs);
}

unsigned StopScriptNotification::notificationId() const {
  if (!request_ || !request_->isFinished())
    return 0;
  const QDBusPendingReply<unsigned> reply = *request_;
  return reply.isValid() ? reply.value() : 0;
}

void StopScriptNotification::onAction(unsigned id, const QString& action) {
  if (id != 0 && id == notificationId() && action == stopAction)
    shouldStop_ = true;
}

} // namespace tavrel
