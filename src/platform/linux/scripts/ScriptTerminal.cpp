#include "platform/linux/applications/ApplicationRegistry.h"
#include "platform/linux/files/DesktopEntry.h"
#include "platform/linux/processes/ProcessStart.h"
#include "platform/linux/processes/ProgramSearch.h"
#include "platform/linux/scripts/ScriptApplications.h"
#include "platform/linux/scripts/ScriptArguments.h"
#include "script/ScriptError.h"

#include <algorithm>

namespace tavrel {

using namespace script;

namespace {

bool isTerminal(const std::string& entryPath) {
  if (!entryPath.ends_with(".desktop"))
    return false;
  const auto entry = loadDesktopEntry(entryPath);
  const std::vector<std::string> categories =
      entry ? entry->categories() : std::vector<std::string>();
  return std::find(categories.begin(), categories.end(), "TerminalEmulator") != categories.end();
}

std::vector<RunningApplication> terminals(ScriptDesktop& desktop) {
  std::vector<RunningApplication> all = desktop.applications.launched();
  std::erase_if(
      all, [](const RunningApplication& each) { return !each.path || !isTerminal(*each.path); });
  return all;
}

HostAnswer count(ScriptDesktop& desktop, const HostEvent&) {
  return HostValue{static_cast<std::int64_t>(terminals(desktop).size())};
}

// Brings a running terminal to the front, but starts none: `do script` opens a window of its own.
HostAnswer activateTerminal(ScriptDesktop& desktop, const HostEvent&) {
  const std::vector<RunningApplication> all = terminals(desktop);
  if (!all.empty())
    (void)desktop.applications.bringToFront(all.back().serialNumber);
  return HostValue{};
}

// No terminal can run a command in a window that is open already. Each command gets a new window,
// in which the user's shell follows it.
HostAnswer doScript(ScriptDesktop&, const HostEvent& event) {
  std::vector<std::string> command = terminalCommand();
  const auto program = command.empty() ? std::nullopt : findProgram(command.front());
  if (!program)
    return HostError{errors::notRunning, "No terminal is installed."};
  if (directText(event).find('\0') != std::string::npos)
    return HostError{errors::cannotCoerce, "A command has no null character."};
  for (const char* argument : {"/bin/sh", "-c"})
    command.emplace_back(argument);
  command.push_back(directText(event) + "\nexec \"${SHELL:-/bin/sh}\"");
  if (const auto error = startDetachedProcess({*program, command, {}, {}}))
    return HostError{errors::notRunning, "The terminal can’t be started: " + error.message()};
  return HostValue{};
}

} // namespace

HostAnswer askTerminal(ScriptDesktop& desktop, const HostEvent& event) {
  static const ScriptCommands commands{{"count", count},
                                       {"activate", activateTerminal},
                                       {"launch", activateTerminal},
                                       {"do script", doScript}};
  const auto command = commands.find(event.command);
  return command != commands.end() ? command->second(desktop, event)
                                   : askApplication(desktop, event);
}

} // namespace tavrel
