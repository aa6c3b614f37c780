#include "platform/linux/installation/ThisInstallation.h"

#include "base/PathString.h"
#include "platform/linux/installation/ResourceFolder.h"
#include "platform/linux/system/UserFolders.h"

namespace tavrel {

// Resources are in PREFIX/share/tavrel.
InstallationFolders installationFolders() {
  return {deletingLastPathComponent(deletingLastPathComponent(resourceFolder())), homeFolder()};
}

std::optional<ComponentLocation> componentLocation(const std::string& path) {
  const auto component = installedComponent(path, homeFolder());
  return component ? std::optional(locationOf(*component, installationFolders())) : std::nullopt;
}

} // namespace tavrel
