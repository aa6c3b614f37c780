#pragma once

#include "platform/linux/files/DesktopEntry.h"

#include <optional>
#include <string>
#include <vector>

namespace tavrel {

class DesktopWindows;

/// Starts applications by their desktop entries. Each operation answers nothing when the
/// application was started (or asked over D-Bus), else the reason why not in one clause.
class ApplicationLauncher {
public:
  explicit ApplicationLauncher(DesktopWindows& windows) : windows_(windows) {}

  /// The application of an entry with documents as URLs. The id of the entry is its name on D-Bus.
  [[nodiscard]] std::optional<std::string> launch(const DesktopEntry& entry, const std::string& id,
                                                  const std::string& entryPath,
                                                  const std::vector<std::string>& urls);

  /// A bare program, with documents as its arguments: paths of local ones.
  [[nodiscard]] std::optional<std::string> launchProgram(const std::string& path,
                                                         const std::vector<std::string>& urls);

private:
  DesktopWindows& windows_;
};

/// Whether the program that the entry's TryExec names is there; true without that key.
[[nodiscard]] bool isInstalled(const DesktopEntry& entry);

} // namespace tavrel
