#pragma once

#include "platform/EventMonitor.h"

#include <functional>
#include <memory>

namespace tavrel {

/// Reports the buttons of every pointer of the X server, also while some program has grabbed the
/// pointer. Has an X connection of its own for as long as a handler is installed.
class ButtonMonitor {
public:
  ButtonMonitor();
  ~ButtonMonitor();

  /// An empty handler closes the connection. 0, or -1 when the server has no XInput 2.
  OSStatus install(std::function<void(ButtonChange)> handler);

private:
  class Connection;
  std::unique_ptr<Connection> connection_; ///< null while no handler is installed
};

} // namespace tavrel
