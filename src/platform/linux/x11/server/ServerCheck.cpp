#include "platform/linux/x11/server/ServerCheck.h"

#include <xcb/xcb.h>

namespace tavrel {

bool serverAnswers() {
  xcb_connection_t* connection = xcb_connect(nullptr, nullptr);
  const bool isThere = xcb_connection_has_error(connection) == 0;
  xcb_disconnect(connection);
  return isThere;
}

} // namespace tavrel
