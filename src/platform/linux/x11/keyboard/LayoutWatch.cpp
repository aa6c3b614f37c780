#include "platform/linux/x11/keyboard/LayoutWatch.h"

#include "platform/linux/x11/server/QtConnection.h"
#include "platform/linux/x11/server/XcbXkb.h"

#include <QCoreApplication>
#include <QObject>

#include <chrono>

namespace tavrel {

namespace {
constexpr std::chrono::milliseconds burstTime{50};

// The toolkit has selected these events on its connection. Events of XKB have their kind in the
// second byte.
bool isLayoutChange(const xcb_generic_event_t& event) {
  const int type = event.response_type & 0x7F;
  if (type == XCB_MAPPING_NOTIFY)
    return true;
  xcb_connection_t* connection = qtConnection();
  const auto* xkb = connection ? xcb_get_extension_data(connection, &xcb_xkb_id) : nullptr;
  return xkb && xkb->present != 0 && type == xkb->first_event &&
         (event.pad0 == XCB_XKB_NEW_KEYBOARD_NOTIFY || event.pad0 == XCB_XKB_MAP_NOTIFY);
}
} // namespace

LayoutWatch::LayoutWatch(std::function<void()> changed) {
  burstTimer_.setSingleShot(true);
  burstTimer_.setInterval(burstTime);
  QObject::connect(&burstTimer_, &QTimer::timeout, &burstTimer_, std::move(changed));
  QCoreApplication::instance()->installNativeEventFilter(this);
}

bool LayoutWatch::nativeEventFilter(const QByteArray& type, void* message, qintptr*) {
  if (type == "xcb_generic_event_t" &&
      isLayoutChange(*static_cast<const xcb_generic_event_t*>(message)))
    burstTimer_.start();
  return false;
}

} // namespace tavrel
