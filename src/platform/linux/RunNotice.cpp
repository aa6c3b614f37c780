#include "platform/linux/RunNotice.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusReply>
#include <QStringList>
#include <QVariantMap>

namespace tavrel {
namespace {

constexpr const char* service = "org.freedesktop.Notifications";
constexpr const char* path = "/org/freedesktop/Notifications";
constexpr const char* stopAction = "stop";
constexpr int untilClosed = 0; // milliseconds: it stays

// The connection of the thread that calls: each has its own.
QDBusConnection bus() {
  return QDBusConnection::connectToBus(QDBusConnection::SessionBus, "tavrel-run-notice");
}

QDBusMessage call(const char* method) {
  return QDBusMessage::createMethodCall(service, path, service, method);
}

} // namespace

void RunNotice::show() {
  bus().connect(service, path, service, "ActionInvoked", this, SLOT(onAction(uint, QString)));
  QDBusMessage message = call("Notify");
  message << "Tavrel" << 0U << "qorvane.tavrel.Tavrel" << name_
          << tr("The script has been running for a while; Tavrel waits for it.")
          << QStringList{stopAction, tr("Stop")} << QVariantMap() << untilClosed;
  const QDBusReply<unsigned> reply = bus().call(message);
  id_ = reply.isValid() ? reply.value() : 0;
}

void RunNotice::close() {
  if (id_ == 0)
    return;
  QDBusMessage message = call("CloseNotification");
  message << id_;
  (void)bus().call(message);
}

void RunNotice::onAction(unsigned id, const QString& action) {
  if (id == id_ && action == stopAction)
    stop_ = true;
}

} // namespace tavrel
