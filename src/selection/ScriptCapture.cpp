#include "controller/TVController.h"
#include "platform/Bundle.h"
#include "platform/Clock.h"
#include "platform/Platform.h"
#include "platform/Scripts.h"
#include "selection/CaptureScript.h"
#include "selection/PasteboardCopy.h"
#include "selection/PrivatePasteboard.h"

namespace tavrel {

namespace {

constexpr double scriptWait = 0.1;

std::unique_ptr<NSAppleScript> loadedScript(const std::string& name) {
  const auto path = platform().bundle.resourcePath(name, "scpt");
  return path ? platform().scripts.initWithContentsOfFile(*path) : nullptr;
}

// A single file is offered as text, too: its path.
void setCapturedPaths(Pasteboard& selection, const std::vector<std::string>& paths) {
  if (paths.empty())
    return clearPasteboard(selection);
  if (paths.size() == 1) {
    selection.declareTypes({pasteboardType::string, pasteboardType::filenames});
    selection.setString(paths.front(), pasteboardType::string);
  } else {
    selection.declareTypes({pasteboardType::filenames});
  }
  selection.setPropertyList(PropertyList::Array(paths.begin(), paths.end()),
                            pasteboardType::filenames);
}

void captureBy(NSAppleScript& script) {
  const auto result = script.execute();
  platform().clock.sleep(scriptWait);
  captureGeneralPasteboard();
  if (const auto paths = pathsIn(result))
    setCapturedPaths(privatePasteboard(), *paths);
}

} // namespace

void TVController::setSelectionToPasteboardWithScript(const std::string& name) {
  const auto scriptName = captureScriptFor(name);
  if (!scriptName)
    return;
  const std::unique_ptr<NSAppleScript> script = loadedScript(*scriptName);
  backUpGeneralPasteboard();
  clearPasteboard(platform().pasteboards.general());
  if (script)
    captureBy(*script);
  restoreGeneralPasteboard();
}

} // namespace tavrel
