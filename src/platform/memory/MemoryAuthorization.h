#pragma once

#include "platform/Authorization.h"

#include <string>
#include <vector>

namespace tavrel {

/// An administrator whose word a test gives or refuses.
class MemoryAuthorization final : public Authorization {
public:
  struct Control {
    bool creates = true;
    bool grants = true;
    bool starts = true;           ///< whether tools can be started
    std::string toolOutput;       ///< what each tool prints
    int sessions = 0;             ///< open now
    std::vector<std::string> log; ///< each call, as "run /bin/rm -rf /x"
  };
  Control control;

  std::unique_ptr<AuthorizationRef> create() override;
};

} // namespace tavrel
