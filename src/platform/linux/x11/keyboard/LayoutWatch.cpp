#include "platform/linux/x11/keyboard/LayoutWatch.h"

#include "platform/linux/x11/keyboard/LayoutChanges.h"
#include "platform/linux/x11/server/QtConnection.h"

#include <QCoreApplication>
#include <QObject>

#include <chrono>

namespace tavrel {

namespace {
constexpr std::chrono::milliseconds burstTime{50};
} // namespace

LayoutWatch::LayoutWatch(std::function<void()> changed) {
  burstTimer_.setSingleShot(true);
  burstTimer_.setInterval(burstTime);
  QObject::connect(&burstTimer_, &QTimer::timeout, &burstTimer_, std::move(changed));
  QCoreApplication::instance()->installNativeEventFilter(this);
}

bool LayoutWatch::nativeEventFilter(const QByteArray& type, void* message, qintptr*) {
  // The toolkit has selected these events on its connection.
  xcb_connection_t* connection = type == "xcb_generic_event_t" ? qtConnection() : nullptr;
  if (connection && isLayoutChange(*connection, *static_cast<const xcb_generic_event_t*>(message)))
    burstTimer_.start();
  return false;
}

} // namespace tavrel
