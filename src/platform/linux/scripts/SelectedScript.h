#pragma once

#include "platform/Applications.h"
#include "platform/Pasteboards.h"
#include "platform/Scripts.h"
#include "platform/SystemLog.h"
#include "platform/linux/scripts/LongRunningScripts.h"

namespace tavrel {

/// What an executable script is handed and watched by.
struct SelectedScriptDesktop {
  Applications& applications;
  Pasteboards& pasteboards;
  SystemLog& log;
  const LongRunningScripts& runs;
};

/// Runs an executable script on what was captured for the menu: the files as arguments, else the
/// text as standard input. Its standard error is logged with its name, and why it cannot start.
/// `scriptError` when it does not, or ends with another status than 0.
[[nodiscard]] OSAError runSelectedScript(const std::string& path,
                                         const SelectedScriptDesktop& desktop);

} // namespace tavrel
