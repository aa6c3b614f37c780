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

/// As it stands between quotation marks in a script source.
std::string escapedForSource(const std::string& text) {
  std::string escaped;
  for (const char each : text) {
    if (each == '"' || each == '\\')
      escaped += '\\';
    escaped += each;
  }
  return escaped;
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

void execScriptSource(const std::string& source, ScriptOrigin origin) {
  const auto run = platform().scripts.runSource(source, origin);
  if (run && run->error)
    platform().log.write(filled("execScriptSource error %@", descriptionOf(*run->error)));
}

bool runOwnSource(const std::string& source) {
  return platform().scripts.runSource(source, ScriptOrigin::Application).has_value();
}

void activateApplication(const std::string& name) {
  runOwnSource(filled("tell application \"%@\" to activate", escapedForSource(name)));
}

void askToQuit(const std::string& path) {
  const std::string name = deletingPathExtension(lastPathComponent(path));
  runOwnSource(filled("tell application \"%@\" to quit", escapedForSource(name)));
}

void launchTavrelPref() {
  runOwnSource("tell application \"System Preferences\"\n"
               "activate\n"
               "reveal pane \"Tavrel\"\n"
               " end tell");
}

} // namespace tavrel
