#include "platform/linux/SingleInstance.h"

#include <QDBusConnection>
#include <QLoggingCategory>

namespace tavrel {

namespace {
Q_LOGGING_CATEGORY(instanceLog, "tavrel.instance")
constexpr const char* busName = "qorvane.tavrel.Tavrel";
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

} // namespace tavrel
