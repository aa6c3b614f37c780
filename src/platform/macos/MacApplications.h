#pragma once

#include "platform/Applications.h"

namespace tavrel {

/// The applications that stand in the Dock.
class MacApplications final : public Applications {
public:
  std::optional<RunningApplication> active() override;
  std::vector<RunningApplication> launched() override;
  bool bringToFront(ProcessSerialNumber process) override;
  std::optional<PropertyList> processInformation(ProcessSerialNumber process) override;
};

} // namespace tavrel
