#include "platform/memory/MemoryApplications.h"

#include <algorithm>

namespace tavrel {

namespace {

const RunningApplication* find(const std::vector<RunningApplication>& running,
                               ProcessSerialNumber process) {
  const auto found = std::ranges::find(running, process, &RunningApplication::serialNumber);
  return found == running.end() ? nullptr : &*found;
}

constexpr std::int32_t firstProcessIdentifier = 100;

std::int32_t nextProcessIdentifier(const std::vector<RunningApplication>& running) {
  std::int32_t next = firstProcessIdentifier;
  for (const RunningApplication& application : running)
    next = std::max(next, application.processIdentifier + 1);
  return next;
}

} // namespace

RunningApplication MemoryApplications::Control::start(const std::string& name,
                                                      const std::string& path) {
  RunningApplication application{.name = name,
                                 .path = path,
                                 .processIdentifier = nextProcessIdentifier(running),
                                 .serialNumber = {}};
  application.serialNumber.low = static_cast<std::uint32_t>(application.processIdentifier);
  running.push_back(application);
  active = application;
  return application;
}

void MemoryApplications::Control::end(ProcessSerialNumber process) {
  std::erase_if(running, [&](const auto& each) { return each.serialNumber == process; });
  if (active && active->serialNumber == process)
    active.reset();
}

std::optional<RunningApplication> MemoryApplications::active() {
  return control.active;
}

std::vector<RunningApplication> MemoryApplications::launched() {
  return control.running;
}

bool MemoryApplications::bringToFront(ProcessSerialNumber process) {
  control.broughtToFront.push_back(process);
  const RunningApplication* application = find(control.running, process);
  if (application == nullptr || control.refusesToBringForward)
    return false;
  control.active = *application;
  return true;
}

std::optional<PropertyList> MemoryApplications::processInformation(ProcessSerialNumber process) {
  const RunningApplication* application = find(control.running, process);
  if (application == nullptr)
    return std::nullopt;
  const auto told = control.information.find(application->processIdentifier);
  if (told != control.information.end())
    return told->second;
  return PropertyList(PropertyList::Dictionary{{"Flavor", 2}});
}

std::optional<std::string> MemoryApplications::nameMeant(const std::string& text,
                                                         const RunningApplication& front) {
  const bool isMeant = std::ranges::find(front.otherNames, text) != front.otherNames.end();
  return isMeant ? front.name : std::nullopt;
}

} // namespace tavrel
