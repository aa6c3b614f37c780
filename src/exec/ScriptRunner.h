#pragma once

#include "platform/Scripts.h"

#include <string>

namespace tavrel {

/// Runs the compiled script in a file and stores its state back; `gExecutingScript` is true
/// meanwhile. Every failure is silent.
void execScript(const std::string& path);

/// Runs a source text of the user's; a failure is one line in the log.
void execScriptSource(const std::string& source);

/// Runs a source of the application's own; a failure is one line in the log.
void execOwnSource(const OwnSource& source);

/// The same; a failure is silent. False when no script object could be made of it.
bool runOwnSource(const OwnSource& source);

/// Brings the application of that name to the front.
void activateApplication(const std::string& name);

/// Asks the application at a path to quit, by the name of its file.
void askToQuit(const std::string& path);

/// Shows the preference pane.
void launchTavrelPref();

} // namespace tavrel
