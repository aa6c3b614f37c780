#include "platform/linux/x11/server/QtConnection.h"

#include <QGuiApplication>

#include <xcb/xcb.h>

namespace tavrel {

xcb_connection_t* qtConnection() {
  const auto* x11 =
      qGuiApp ? qGuiApp->nativeInterface<QNativeInterface::QX11Application>() : nullptr;
  return x11 ? x11->connection() : nullptr;
}

std::uint32_t rootWindow(xcb_connection_t& connection) {
  return xcb_setup_roots_iterator(xcb_get_setup(&connection)).data->root;
}

} // namespace tavrel
