#pragma once

#include "platform/linux/files/DesktopEntry.h"

#include <optional>
#include <string>
#include <vector>

namespace tavrel {

class DesktopWindows;

/// Starts applications as their desktop entries say. Each operation answers nothing once the
/// application was started or asked, else why not, in words for one line.
class ApplicationLauncher {
public:
  explicit ApplicationLauncher(DesktopWindows& windows) : windows_(windows) {}

  /// The application of an entry with documents as URLs; the id tells its name on the bus.
  [[nodiscard]] std::optional<std::string> launch(const DesktopEntry& entry, const std::string& id,
                                                  const std::string& entryPath,
                                                  const std::vector<std::string>& urls);

  /// A bare program, with documents as its arguments: paths of local ones.
  [[nodiscard]] std::optional<std::string> launchProgram(const std::string& path,
                                                         const std::vector<std::string>& urls);

private:
  DesktopWindows& windows_;
};

/// Whether an entry's application is there: what its TryExec names, when it has one.
[[nodiscard]] bool isInstalled(const DesktopEntry& entry);

} // namespace tavrel
