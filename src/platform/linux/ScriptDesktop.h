#pragma once

#include "platform/Applications.h"
#include "platform/Clock.h"
#include "platform/Pasteboards.h"
#include "platform/Sounds.h"
#include "platform/SystemLog.h"
#include "platform/Workspace.h"
#include "script/Host.h"

#include <functional>

namespace tavrel {

class ApplicationRegistry;
class DesktopWindows;

/// What scripts reach of the desktop. All must outlive whoever holds this.
struct ScriptDesktop {
  Applications& applications;
  Clock& clock;
  Sounds& sounds;
  SystemLog& log;
  Pasteboards& pasteboards;
  Workspace& workspace;
  ApplicationRegistry& registry;
  DesktopWindows& windows;
  std::string rolesFolder;
};

/// Commands of scripts by name.
using ScriptCommand = script::HostAnswer (*)(ScriptDesktop& desktop,
                                             const script::HostEvent& event);
using ScriptCommands = std::map<std::string, ScriptCommand, std::less<>>;

} // namespace tavrel
