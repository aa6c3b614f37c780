#pragma once

#include "platform/Applications.h"

#include <string>

namespace tavrel {

/// What the menu was called up over.
struct HostContext {
  std::string hostName; ///< of the application in front then
  /// That application; without anything when another program told the name alone.
  RunningApplication application{};
  bool filesSelected = false; ///< the captured selection holds files
};

} // namespace tavrel
