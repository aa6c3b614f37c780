#pragma once

#include "platform/Authorization.h"

namespace tavrel {

/// The system's authorization services; tools run as the administrator, whatever they are.
class MacAuthorization final : public Authorization {
public:
  std::unique_ptr<AuthorizationRef> create() override;
};

} // namespace tavrel
