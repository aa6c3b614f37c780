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
  /// Bundles go by the names of their files here.
  std::optional<std::string> nameMeant(const std::string&, const RunningApplication&) override {
    return std::nullopt;
  }
};

} // namespace tavrel
