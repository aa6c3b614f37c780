#include "platform/linux/applications/LinuxApplications.h"

#include "platform/linux/applications/ApplicationNames.h"
#include "platform/linux/applications/FileManagerRoles.h"
#include "platform/linux/applications/WindowMatch.h"
#include "platform/linux/processes/ProcessFacts.h"

#include <algorithm>
#include <unistd.h>
#include <utility>

namespace tavrel {

namespace {

constexpr int flavorWithWindows = 2;

ProcessSerialNumber serialOf(const WindowFacts& facts) {
  if (facts.pid > 0)
    return {0, static_cast<std::uint32_t>(facts.pid)};
  return {1, facts.client};
}

/// Name and path of a program without a desktop entry.
void describeProgram(RunningApplication& application, const WindowFacts& facts,
                     const std::string& executable) {
  const bool isOwnProgram = !executable.empty() && !isInterpreter(executable);
  const std::string name = isOwnProgram || facts.windowClass.empty()
                               ? executable.substr(executable.rfind('/') + 1)
                               : facts.windowClass;
  if (!name.empty())
    application.name = name;
  if (!executable.empty())
    application.path = executable;
  application.otherNames = otherNamesOf(executable);
}

} // namespace

std::optional<RunningApplication> LinuxApplications::ownerOf(WindowId window,
                                                             const FileManagers& managers) {
  const std::optional<WindowFacts> facts = windows_.facts(window);
  if (!facts || facts->kind == WindowKind::dock)
    return std::nullopt;
  RunningApplication application;
  application.processIdentifier = facts->pid;
  application.serialNumber = serialOf(*facts);
  const bool isFileManager = describe(application, *facts, managers);
  if (facts->kind == WindowKind::desktop && !isFileManager)
    return std::nullopt;
  return application;
}

bool LinuxApplications::describe(RunningApplication& application, const WindowFacts& facts,
                                 const FileManagers& managers) {
  if (facts.pid == ::getpid()) {
    application.name = ownApplicationName;
    application.path = rolesFolder_ + "/" + ownApplicationName + ".desktop";
    return false;
  }
  const std::string executable = executableOf(facts.pid);
  const InstalledApplication* known = applicationOf(facts, executable, registry_);
  if (known == nullptr) {
    describeProgram(application, facts, executable);
    return false;
  }
  const auto role = rolePlayedBy(*known, managers);
  application.name = role ? nameOf(*role) : displayNameOf(*known);
  application.path = role ? rolesFolder_ + "/" + nameOf(*role) + ".desktop" : known->path;
  application.otherNames = otherNamesOf(*known, executable);
  return role.has_value();
}

std::optional<RunningApplication> LinuxApplications::active() {
  const WindowId window = windows_.activeWindow();
  if (window == 0)
    return std::nullopt;
  registry_.refresh();
  return ownerOf(window, fileManagers(registry_));
}

std::vector<RunningApplication> LinuxApplications::launched() {
  registry_.refresh();
  const FileManagers managers = fileManagers(registry_);
  std::vector<RunningApplication> result;
  for (const WindowId window : windows_.windows())
    if (std::optional<RunningApplication> owner = ownerOf(window, managers)) {
      const bool known = std::ranges::find(result, owner->serialNumber,
                                           &RunningApplication::serialNumber) != result.end();
      if (!known)
        result.push_back(std::move(*owner));
    }
  std::ranges::stable_sort(result, {}, [](const RunningApplication& each) {
    return std::pair(startTimeOf(each.processIdentifier), each.processIdentifier);
  });
  return result;
}

bool LinuxApplications::bringToFront(ProcessSerialNumber process) {
  WindowId best = 0;
  const std::vector<WindowId> stacking = windows_.stacking();
  for (auto window = stacking.rbegin(); window != stacking.rend(); ++window) {
    const std::optional<WindowFacts> facts = windows_.facts(*window);
    if (!facts || facts->kind == WindowKind::dock || serialOf(*facts) != process)
      continue;
    best = best == 0 || facts->kind == WindowKind::ordinary ? *window : best;
    if (facts->kind == WindowKind::ordinary)
      break;
  }
  return best != 0 && windows_.activate(best);
}

std::optional<PropertyList> LinuxApplications::processInformation(ProcessSerialNumber process) {
  const std::vector<RunningApplication> all = launched();
  const auto found = std::ranges::find(all, process, &RunningApplication::serialNumber);
  if (found == all.end())
    return std::nullopt;
  PropertyList::Dictionary information{{"Flavor", flavorWithWindows},
                                       {"pid", found->processIdentifier}};
  if (found->name)
    information.emplace("CFBundleName", *found->name);
  if (found->path)
    information.emplace("BundlePath", *found->path);
  if (std::string executable = executableOf(found->processIdentifier); !executable.empty())
    information.emplace("CFBundleExecutable", std::move(executable));
  return PropertyList(std::move(information));
}

std::optional<std::string> LinuxApplications::nameMeant(const std::string& text,
                                                        const RunningApplication& front) {
  return nameMeantBy(text, front, registry_);
}

} // namespace tavrel
