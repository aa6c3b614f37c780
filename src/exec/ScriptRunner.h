#pragma once

#include "platform/Scripts.h"

#include <string>

namespace tavrel {

/// Runs the compiled script in a file and stores its state back; `gExecutingScript` is true
/// meanwhile. Every failure is silent.
void execScript(const std::string& path);

/// Runs a source text; a failure is one line in the log.
void execScriptSource(const std::string& source, ScriptOrigin origin);

/// Runs a source text of the application's own; a failure is silent. False when no script object
/// could be made of it.
bool runOwnSource(const std::string& source);

/// Brings the application of that name to the front.
void activateApplication(const std::string& name);

/// Asks the application at a path to quit, by the name of its file.
void askToQuit(const std::string& path);

/// Shows the preference pane.
void launchTavrelPref();

} // namespace tavrel
