#include "platform/linux/SelectedScript.h"

#include "base/PathString.h"
#include "platform/linux/ExecutableScript.h"

namespace tavrel {
namespace {

// Where the selection of the menu now shown is kept.
constexpr const char* menuPasteboard = "TVRMenuPboardType";

std::vector<std::string> filesOn(Pasteboard& pasteboard) {
  std::vector<std::string> files;
  const auto list = pasteboard.propertyList(pasteboardType::filenames);
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
  const ExecutableScript script{path, filesOn(pasteboard),
                                pasteboard.string(pasteboardType::string).value_or(""),
                                front && front->name ? *front->name : std::string()};
  const std::string name = lastPathComponent(path);
  const ExecutableOutcome outcome = runExecutableScript(
      script, {[&] { return desktop.runs.shouldStop(); },
               [&](const std::string& line) { desktop.log.write(name + ": " + line); }});
  return outcome.isSuccess() ? osaError::none : osaError::scriptError;
}

} // namespace tavrel
