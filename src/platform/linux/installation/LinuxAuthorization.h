#pragma once

#include "platform/Authorization.h"

#include <string>
#include <vector>

namespace tavrel {

/// Rights through the desktop's rights service (polkit): its program starts our helper, once, when
/// the person has given an administrator's word for the action qorvane.tavrel.uninstall. All that
/// can be done with them is to remove the installed pieces, by "/bin/rm" "-rf" and their paths.
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
