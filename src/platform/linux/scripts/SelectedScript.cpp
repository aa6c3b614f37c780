#include "platform/linux/scripts/SelectedScript.h"

#include "base/PathString.h"
#include "platform/linux/processes/SelectionProgram.h"

#include <cstring>

namespace tavrel {
namespace {

// The pasteboard with the selection that was captured for the menu.
constexpr const char* menuPasteboard = "TVRMenuPboardType";

// In the order in which the application itself looks for them.
std::optional<PropertyList> fileListOn(Pasteboard& pasteboard) {
  auto list = pasteboard.propertyList(pasteboardType::filenames);
  return list ? list : pasteboard.propertyList(pasteboardType::pathFinderFilenames);
}

std::vector<std::string> filesOn(Pasteboard& pasteboard) {
  std::vector<std::string> files;
  const auto list = fileListOn(pasteboard);
  const PropertyList::Array* array = list ? list->array() : nullptr;
  for (const PropertyList& each : array ? *array : PropertyList::Array())
    if (const std::string* path = each.string())
      files.push_back(*path);
  return files;
}

} // namespace

OSAError runSelectedScript(const std::string& path, const SelectedScriptDesktop& desktop) {
  Pasteboard& pasteboard = desktop.pasteboards.named(menuPasteboard);
  const auto front = desktop.applications.active();
  const SelectionProgram script{path, filesOn(pasteboard),
                                pasteboard.string(pasteboardType::string).value_or(""),
                                front && front->name ? *front->name : std::string()};
  const std::string name = lastPathComponent(path);
  const ProgramOutcome outcome = runSelectionProgram(
      script, {[&] { return desktop.longRunningScripts.shouldStop(); },
               [&](const std::string& line) { desktop.log.write(name + ": " + line); }});
  if (outcome.ending == ProgramOutcome::Ending::notStarted)
    desktop.log.write(name + ": cannot be started: " + std::strerror(outcome.number));
  return outcome.isSuccess() ? osaError::none : osaError::scriptError;
}

} // namespace tavrel
