#pragma once

#include "platform/Authorization.h"

namespace tavrel {

/// No administrator yet: nobody grants a right.
class LinuxAuthorization final : public Authorization {
public:
  std::unique_ptr<AuthorizationRef> create() override { return nullptr; }
};

} // namespace tavrel
