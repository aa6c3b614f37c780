#include "platform/linux/x11/clipboard/PrimarySelection.h"

#include "platform/linux/x11/windows/ClientProcess.h"

namespace tavrel {

bool PrimarySelection::isOf(xcb_window_t window) {
  const xcb_window_t owner = connection_.ownerOf("PRIMARY");
  if (owner == XCB_WINDOW_NONE)
    return false;
  const std::int32_t process = processOfClient(*connection_.server(), window);
  return connection_.areOfOneClient(owner, window) ||
         (process != 0 && processOfClient(*connection_.server(), owner) == process);
}

} // namespace tavrel
