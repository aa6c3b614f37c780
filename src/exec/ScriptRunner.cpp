#include "exec/ScriptRunner.h"

#include "base/Description.h"
#include "base/Format.h"
#include "base/PathString.h"
#include "controller/ProcessState.h"
#include "exec/TVAppleScript.h"
#include "platform/Platform.h"
#include "platform/SystemLog.h"

#include <utility>

namespace tavrel {

namespace {

void logFailure(const std::optional<SourceRun>& run) {
  if (run && run->error)
    platform().log.write(filled("execScriptSource error %@", descriptionOf(*run->error)));
}

} // namespace

void execScript(const std::string& path) {
  TVAppleScript script(path);
  // While a script waits for the user, another one may run inside it; the flag must outlast that
  // one.
  const bool isInsideAnother = std::exchange(gExecutingScript, true);
  script.executeAndReturnError();
  gExecutingScript = isInsideAnother;
}

void execScriptSource(const std::string& source) {
  logFailure(platform().scripts.runSource(source));
}

void execOwnSource(const OwnSource& source) {
  logFailure(platform().scripts.runOwnSource(source));
}

bool runOwnSource(const OwnSource& source) {
  return platform().scripts.runOwnSource(source).has_value();
}

void activateApplication(const std::string& name) {
  runOwnSource({"tell application \"%@\" to activate", {name}});
}

void askToQuit(const std::string& path) {
  const std::string name = deletingPathExtension(lastPathComponent(path));
  runOwnSource({"tell application \"%@\" to quit", {name}});
}

void launchTavrelPref() {
  runOwnSource({"tell application \"System Preferences\"\n"
                "activate\n"
                "reveal pane \"Tavrel\"\n"
                " end tell",
                {}});
}

} // namespace tavrel
