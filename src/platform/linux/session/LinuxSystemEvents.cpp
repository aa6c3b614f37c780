#include "platform/linux/session/LinuxSystemEvents.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QLoggingCategory>

#include <array>

namespace tavrel {

namespace {

Q_LOGGING_CATEGORY(sessionLog, "tavrel.session")

constexpr std::int32_t eventNotHandled = -1708;
constexpr std::int32_t processNotFound = -600;

struct SessionManager {
  const char* name;
  const char* path;
  const char* interface;
  QVariantList arguments; ///< so that the user is not asked once more
};

const std::array<SessionManager, 5>& sessionManagers() {
  static const std::array<SessionManager, 5> all{
      {{"org.gnome.SessionManager", "/org/gnome/SessionManager", "org.gnome.SessionManager", {1U}},
       {"org.xfce.SessionManager",
        "/org/xfce/SessionManager",
        "org.xfce.Session.Manager",
        {false, true}},
       {"org.kde.Shutdown", "/Shutdown", "org.kde.Shutdown", {}},
       {"org.kde.ksmserver", "/KSMServer", "org.kde.KSMServerInterface", {0, 0, 0}},
       {"org.lxqt.session", "/LXQtSession", "org.lxqt.session", {}}}};
  return all;
}

// KDE and LXQt have the method in lower case.
QString methodOf(const SessionManager& manager) {
  const QString name = QString::fromLatin1(manager.name);
  return name.contains("gnome") || name.contains("xfce") ? QStringLiteral("Logout")
                                                         : QStringLiteral("logout");
}

bool isRunning(const SessionManager& manager) {
  const auto* bus = QDBusConnection::sessionBus().interface();
  return bus && bus->isServiceRegistered(QString::fromLatin1(manager.name));
}

bool callLogOut(const SessionManager& manager) {
  QDBusMessage call = QDBusMessage::createMethodCall(manager.name, manager.path, manager.interface,
                                                     methodOf(manager));
  call.setArguments(manager.arguments);
  return QDBusConnection::sessionBus().send(call);
}

} // namespace

std::int32_t LinuxSystemEvents::send(const SystemEvent& event) {
  if (event.eventClass != kCoreEventClass || event.eventIdentifier != kAEReallyLogOut)
    return eventNotHandled;
  for (const SessionManager& manager : sessionManagers())
    if (isRunning(manager) && callLogOut(manager))
      return 0;
  qCWarning(sessionLog, "no session manager is running: log out as this desktop has it");
  return processNotFound;
}

} // namespace tavrel
