#include "platform/linux/x11/keyboard/LayoutWatch.h"

#include "platform/linux/x11/server/QtConnection.h"
#include "platform/linux/x11/server/XcbXkb.h"

#include <QCoreApplication>
#include <QObject>

#include <chrono>

namespace tavrel {

namespace {
constexpr std::chrono::milliseconds burst{50};

// The toolkit asks for these notices on its connection. Every one of the extension has its kind in
// the second byte.
bool tellsOfLayout(const xcb_generic_event_t& event) {
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
  settled_.setSingleShot(true);
  settled_.setInterval(burst);
  QObject::connect(&settled_, &QTimer::timeout, &settled_, std::move(changed));
  QCoreApplication::instance()->installNativeEventFilter(this);
}

bool LayoutWatch::nativeEventFilter(const QByteArray& type, void* message, qintptr*) {
  if (type == "xcb_generic_event_t" &&
      tellsOfLayout(*static_cast<const xcb_generic_event_t*>(message)))
    settled_.start();
  return false;
}

} // namespace tavrel
