#pragma once

#include "platform/Accessibility.h"
#include "platform/Applications.h"
#include "platform/Clock.h"
#include "platform/Keyboard.h"
#include "platform/Pasteboards.h"
#include "platform/Sounds.h"
#include "platform/SystemLog.h"
#include "platform/Workspace.h"
#include "script/Host.h"

#include <functional>

namespace tavrel {

class ApplicationRegistry;
class DesktopWindows;
class ScriptableApplication;

/// The ports and adapters that commands of scripts use. All must outlive the holder of this.
struct ScriptDesktop {
  Accessibility& accessibility;
  Applications& applications;
  Clock& clock;
  Keyboard& keyboard;
  Sounds& sounds;
  SystemLog& log;
  Pasteboards& pasteboards;
  Workspace& workspace;
  ApplicationRegistry& registry;
  DesktopWindows& windows;
  std::string rolesFolder;
  /// This program as a scriptable application; null when none is set.
  std::function<ScriptableApplication*()> application;
  /// The files that a script holds open, by path, with the byte at which reading or writing goes
  /// on.
  std::map<std::string, std::size_t> openFiles{};
};

/// Commands of scripts by name.
using ScriptCommand = script::HostAnswer (*)(ScriptDesktop& desktop,
                                             const script::HostEvent& event);
using ScriptCommands = std::map<std::string, ScriptCommand, std::less<>>;

} // namespace tavrel
