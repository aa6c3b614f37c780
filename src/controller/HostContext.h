#pragma once

#include <string>

namespace tavrel {

/// What the menu was called up over.
struct HostContext {
  std::string hostName;       ///< of the application in front then
  bool filesSelected = false; ///< the captured selection holds files
};

} // namespace tavrel
