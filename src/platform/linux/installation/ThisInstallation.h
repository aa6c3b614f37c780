#pragma once

#include "platform/linux/installation/InstalledComponents.h"

namespace tavrel {

/// The prefix of this installation and the home folder of the user who runs it.
[[nodiscard]] InstallationFolders installationFolders();

/// Where this installation has the component that a path means (see `installedComponent`); nothing
/// for any other path.
[[nodiscard]] std::optional<ComponentLocation> componentLocation(const std::string& path);

} // namespace tavrel
