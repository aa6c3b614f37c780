#include "platform/linux/applications/DBusActivation.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusReply>
#include <QStringList>
#include <QVariantMap>

namespace tavrel {

namespace {

/// Long enough for a program to start, short enough for the user to wait.
constexpr int activationTimeoutMsecs = 3000;

QString busNameOf(const std::string& entryId) {
  QString name = QString::fromStdString(entryId);
  if (name.endsWith(QStringLiteral(".desktop")))
    name.chop(8);
  return name;
}

QString objectPathOf(const QString& busName) {
  QString path = QLatin1Char('/') + busName;
  return path.replace(QLatin1Char('.'), QLatin1Char('/'))
      .replace(QLatin1Char('-'), QLatin1Char('_'));
}

bool isKnown(const QDBusConnection& bus, const QString& name) {
  QDBusConnectionInterface* daemon = bus.interface();
  if (daemon == nullptr || !name.contains(QLatin1Char('.')))
    return false;
  if (daemon->isServiceRegistered(name))
    return true;
  const QDBusReply<QStringList> activatable = daemon->activatableServiceNames();
  return activatable.isValid() && activatable.value().contains(name);
}

QVariantMap platformData(const std::string& startupId) {
  if (startupId.empty())
    return {};
  const QString id = QString::fromStdString(startupId);
  return {{QStringLiteral("desktop-startup-id"), id}, {QStringLiteral("activation-token"), id}};
}

QStringList listOf(const std::vector<std::string>& texts) {
  QStringList list;
  for (const std::string& text : texts)
    list.append(QString::fromStdString(text));
  return list;
}

} // namespace

DBusAnswer activateOverDBus(const std::string& entryId, const std::vector<std::string>& urls,
                            const std::string& startupId) {
  const QDBusConnection bus = QDBusConnection::sessionBus();
  const QString name = busNameOf(entryId);
  if (!bus.isConnected() || !isKnown(bus, name))
    return DBusAnswer::unavailable;
  QDBusMessage call = QDBusMessage::createMethodCall(
      name, objectPathOf(name), QStringLiteral("org.freedesktop.Application"),
      urls.empty() ? QStringLiteral("Activate") : QStringLiteral("Open"));
  if (!urls.empty())
    call << listOf(urls);
  call << platformData(startupId);
  const QDBusMessage answer = bus.call(call, QDBus::Block, activationTimeoutMsecs);
  const bool isTimeout = answer.errorName() == QStringLiteral("org.freedesktop.DBus.Error.NoReply");
  return answer.type() == QDBusMessage::ReplyMessage || isTimeout ? DBusAnswer::asked
                                                                  : DBusAnswer::unavailable;
}

} // namespace tavrel
