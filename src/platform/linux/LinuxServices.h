#pragma once

#include "platform/Services.h"

namespace tavrel {

/// Nothing yet.
class LinuxServices final : public Services {
public:
  bool performService(const std::string&, Pasteboard&) override { return false; }
  void setServicesProvider(ServicesProvider*) override {}
};

} // namespace tavrel
