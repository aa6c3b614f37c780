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
  struct Environment {
    std::vector<std::string> folders; ///< where services are; the first that has one wins
    std::function<std::string()> hostApplication; ///< the name of the application in front
    std::chrono::milliseconds timeout = std::chrono::seconds(10);
  };
  /// The object on the bus must outlive this.
  LinuxServices(Environment environment, BusObject& object)
      : environment_(std::move(environment)), application_(object) {}

  /// Waits for the end of the service. One that runs into the timeout, or prints more than 16 MB,
  /// is ended; its name and the reason go to standard error, as with one that fails. The pasteboard
  /// changes only when the service succeeded and printed something.
  bool performService(const std::string& name, Pasteboard& pasteboard) override;
  void setServicesProvider(ServicesProvider* provider) override {
    application_.setProvider(provider);
  }

private:
  Environment environment_;
  ApplicationService application_;
};

} // namespace tavrel
