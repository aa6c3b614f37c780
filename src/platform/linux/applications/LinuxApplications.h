#pragma once

#include "platform/Applications.h"
#include "platform/linux/x11/windows/DesktopWindows.h"

namespace tavrel {

class ApplicationRegistry;
struct InstalledApplication;

/// The processes that have windows, each with the desktop entry of its application. File managers
/// have the name and entry of their role: Finder, the second one Path Finder. A desktop window
/// counts only when it belongs to a file manager; docks do not count.
///
/// A serial number is {0, process identifier}; for a window whose process is unknown (it is on
/// another machine) it is {1, the X11 client}, with 0 as the process identifier.
class LinuxApplications final : public Applications {
public:
  /// `rolesFolder` holds "Finder.desktop" and "Path Finder.desktop"; the others must outlive this.
  LinuxApplications(ApplicationRegistry& registry, DesktopWindows& windows, std::string rolesFolder)
      : registry_(registry), windows_(windows), rolesFolder_(std::move(rolesFolder)) {}

  [[nodiscard]] std::optional<RunningApplication> active() override;
  [[nodiscard]] std::vector<RunningApplication> launched() override;
  bool bringToFront(ProcessSerialNumber process) override;
  /// "Flavor", "pid", and where known "CFBundleName", "CFBundleExecutable" (the program's path) and
  /// "BundlePath" (the application's path).
  [[nodiscard]] std::optional<PropertyList>
  processInformation(ProcessSerialNumber process) override;
  /// An application goes by its name in the applications menu or its role; what it means beside
  /// that stands in ApplicationNames.h. A name that is another application's in full is never cut.
  [[nodiscard]] std::optional<std::string> nameMeant(const std::string& text,
                                                     const RunningApplication& front) override;

private:
  using FileManagers = std::vector<const InstalledApplication*>;

  [[nodiscard]] std::optional<RunningApplication> ownerOf(WindowId window,
                                                          const FileManagers& managers);
  /// Fills in name and path; true for a file manager.
  bool describe(RunningApplication& application, const WindowFacts& facts,
                const FileManagers& managers);

  ApplicationRegistry& registry_;
  DesktopWindows& windows_;
  std::string rolesFolder_;
};

} // namespace tavrel
