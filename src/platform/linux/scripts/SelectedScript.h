#pragma once

#include "platform/Applications.h"
#include "platform/Pasteboards.h"
#include "platform/Scripts.h"
#include "platform/SystemLog.h"
#include "platform/linux/scripts/LongRunningScripts.h"

namespace tavrel {

/// What running an executable script needs of the desktop.
struct SelectedScriptDesktop {
  Applications& applications;
  Pasteboards& pasteboards;
  SystemLog& log;
  const LongRunningScripts& longRunningScripts;
};

/// Runs an executable script on what was captured for the menu: the files as arguments, else the
/// text as standard input. Its standard error, and the reason when it cannot start, are logged with
/// its name. `scriptError` when it cannot start or its exit status is not 0.
[[nodiscard]] OSAError runSelectedScript(const std::string& path,
                                         const SelectedScriptDesktop& desktop);

} // namespace tavrel
