#pragma once

#include "platform/EventMonitor.h"

#include <functional>
#include <memory>

namespace tavrel {

/// The buttons of every pointer of the X server, whoever holds them, over a connection of its own.
/// There is no connection while nobody watches.
class ButtonMonitor {
public:
  ButtonMonitor();
  ~ButtonMonitor();

  /// An empty handler ends the watching. 0, or -1 when the server cannot tell of buttons.
  OSStatus install(std::function<void(ButtonChange)> changed);

private:
  class Watch;
  std::unique_ptr<Watch> watch_; ///< null while nobody watches
};

} // namespace tavrel
