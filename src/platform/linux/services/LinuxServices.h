#pragma once

#include "platform/Services.h"
#include "platform/linux/dbus/ApplicationService.h"

#include <chrono>
#include <functional>
#include <vector>

namespace tavrel {

/// Services are executables in folders. The desktop asks for ours over D-Bus.
class LinuxServices final : public Services {
public:
  struct Surroundings {
    std::vector<std::string> folders;             ///< those that come first win
    std::function<std::string()> hostApplication; ///< the name of the application in front
    std::chrono::milliseconds timeout = std::chrono::seconds(10); ///< with one that hangs
  };
  /// The object on the bus must outlive this.
  LinuxServices(Surroundings surroundings, BusObject& object)
      : surroundings_(std::move(surroundings)), application_(object) {}

  /// Waits for the end of the service: one that takes too long, or prints without end, is ended and
  /// named on standard error, as is one that fails. The pasteboard changes only when it ended
  /// well and printed something.
  bool performService(const std::string& name, Pasteboard& pasteboard) override;
  void setServicesProvider(ServicesProvider* provider) override {
    application_.setProvider(provider);
  }

private:
  Surroundings surroundings_;
  ApplicationService application_;
};

} // namespace tavrel
