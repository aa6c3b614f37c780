#pragma once

#include "platform/Authorization.h"

#include <string>
#include <vector>

namespace tavrel {

/// Rights through polkit: pkexec asks for an administrator's password for the action
/// qorvane.tavrel.uninstall and starts our helper, once. The only tool that the helper stands in
/// for is "/bin/rm" "-rf" with the path of an installed component.
class LinuxAuthorization final : public Authorization {
public:
  /// The command that starts the helper with the rights.
  explicit LinuxAuthorization(std::vector<std::string> command) : command_(std::move(command)) {}

  std::unique_ptr<AuthorizationRef> create() override;

private:
  std::vector<std::string> command_;
};

/// That command for this installation.
[[nodiscard]] std::vector<std::string> uninstallHelperCommand();

} // namespace tavrel
