#include "platform/linux/tray/NotifierItem.h"

#include "platform/linux/tray/NotifierItemAdaptor.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QDBusVariant>

namespace tavrel {

Q_LOGGING_CATEGORY(trayLog, "tavrel.tray")

namespace {
const QString watcherName = QStringLiteral("org.kde.StatusNotifierWatcher");
const QString watcherPath = QStringLiteral("/StatusNotifierWatcher");
const QString itemPath = QStringLiteral("/StatusNotifierItem");

/// The path of an item is fixed, so each item needs a bus connection and a name of its own.
QString nextName() {
  static int count = 0;
  return QStringLiteral("org.kde.StatusNotifierItem-%1-%2")
      .arg(QCoreApplication::applicationPid())
      .arg(++count);
}

QDBusMessage registration(const QString& itemName) {
  QDBusMessage call = QDBusMessage::createMethodCall(watcherName, watcherPath, watcherName,
                                                     QStringLiteral("RegisterStatusNotifierItem"));
  call.setAutoStartService(false);
  call << itemName;
  return call;
}

QDBusMessage hostRequest() {
  QDBusMessage call = QDBusMessage::createMethodCall(
      watcherName, watcherPath, QStringLiteral("org.freedesktop.DBus.Properties"),
      QStringLiteral("Get"));
  call.setAutoStartService(false);
  call << watcherName << QStringLiteral("IsStatusNotifierHostRegistered");
  return call;
}

void whenAnswered(const QDBusPendingCall& call, QObject* context,
                  std::function<void(QDBusPendingCallWatcher&)> action) {
  auto* watcher = new QDBusPendingCallWatcher(call, context);
  QObject::connect(watcher, &QDBusPendingCallWatcher::finished, context,
                   [action = std::move(action)](QDBusPendingCallWatcher* finished) {
                     finished->deleteLater();
                     action(*finished);
                   });
}
} // namespace

NotifierItem::NotifierItem(std::function<void()> clicked, std::function<void()> hostChanged)
    : hostChanged_(std::move(hostChanged)), name_(nextName()),
      bus_(QDBusConnection::connectToBus(QDBusConnection::SessionBus, name_)),
      adaptor_(new NotifierItemAdaptor(this, std::move(clicked))) {
  if (bus_.isConnected()) {
    enterBus();
  } else {
    host_ = NotifierHost::noWatcher;
    qCWarning(trayLog) << "no session bus: the icon can show in an old-style tray only";
  }
}

NotifierItem::~NotifierItem() {
  bus_.unregisterObject(itemPath);
  QDBusConnection::disconnectFromBus(name_);
}

void NotifierItem::enterBus() {
  bus_.registerObject(itemPath, this, QDBusConnection::ExportAdaptors);
  bus_.registerService(name_);
  auto* watcher =
      new QDBusServiceWatcher(watcherName, bus_, QDBusServiceWatcher::WatchForOwnerChange, this);
  connect(watcher, &QDBusServiceWatcher::serviceOwnerChanged, this, &NotifierItem::watcherChanged);
  for (const char* change : {"StatusNotifierHostRegistered", "StatusNotifierHostUnregistered"})
    bus_.connect(watcherName, watcherPath, watcherName, QString::fromLatin1(change), this,
                 SLOT(requestHost()));
  registerItem();
}

void NotifierItem::watcherChanged(const QString&, const QString&, const QString& now) {
  if (now.isEmpty())
    setHost(NotifierHost::noWatcher);
  else
    registerItem();
}

void NotifierItem::registerItem() {
  whenAnswered(bus_.asyncCall(registration(name_)), this, [this](QDBusPendingCallWatcher& call) {
    if (call.isError())
      setHost(NotifierHost::noWatcher);
    else
      requestHost();
  });
}

void NotifierItem::requestHost() {
  whenAnswered(bus_.asyncCall(hostRequest()), this, [this](QDBusPendingCallWatcher& call) {
    const QDBusPendingReply<QDBusVariant> reply = call;
    const bool present = reply.isValid() && reply.value().variant().toBool();
    setHost(present ? NotifierHost::present : NotifierHost::noHost);
  });
}

void NotifierItem::setHost(NotifierHost host) {
  host_ = host;
  hostChanged_();
}

void NotifierItem::setIcon(const QIcon& icon) {
  adaptor_->setIcon(icon);
}

} // namespace tavrel
