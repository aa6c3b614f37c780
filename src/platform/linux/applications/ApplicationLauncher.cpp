#include "platform/linux/applications/ApplicationLauncher.h"

#include "base/LocalUrl.h"
#include "platform/linux/applications/DBusActivation.h"
#include "platform/linux/applications/ExecLine.h"
#include "platform/linux/applications/StartupNotification.h"
#include "platform/linux/processes/ProcessStart.h"
#include "platform/linux/processes/ProgramSearch.h"

namespace tavrel {

namespace {

using Refusal = std::optional<std::string>;

Refusal startProgram(CommandLine line, const std::string& folder, const std::string& startupId) {
  const auto program = line.empty() ? std::nullopt : findProgram(line.front());
  if (!program)
    return "no program " + (line.empty() ? std::string() : line.front());
  ProcessRequest request{*program, std::move(line), folder, {}};
  if (!startupId.empty())
    request.environment = {{"DESKTOP_STARTUP_ID", startupId}, {"XDG_ACTIVATION_TOKEN", startupId}};
  const std::error_code error = startDetachedProcess(request);
  return error ? Refusal(*program + ": " + error.message()) : std::nullopt;
}

/// Starts the entry's command line, in a terminal window when it asks for one.
Refusal startCommand(const DesktopEntry& entry, const ExecContext& context,
                     const std::string& startupId) {
  const std::optional<CommandLine> arguments = splitExec(entry.exec());
  if (!arguments)
    return "its command line cannot be read";
  const CommandLine terminal = entry.terminal() ? terminalCommand() : CommandLine();
  if (entry.terminal() && terminal.empty())
    return "no terminal to run it in";
  for (CommandLine& line : expandExec(*arguments, context)) {
    line.insert(line.begin(), terminal.begin(), terminal.end());
    if (Refusal refused = startProgram(std::move(line), entry.path(), startupId))
      return refused;
  }
  return std::nullopt;
}

} // namespace

std::optional<std::string> ApplicationLauncher::launch(const DesktopEntry& entry,
                                                       const std::string& id,
                                                       const std::string& entryPath,
                                                       const std::vector<std::string>& urls) {
  if (!isInstalled(entry))
    return "not installed: there is no program " + entry.tryExec();
  StartupNotification notification(windows_, entry, entryPath);
  if (entry.dbusActivatable() && activateOverDBus(id, urls, notification.id()) == DBusAnswer::asked)
    return std::nullopt;
  const std::string locale = messagesLocale();
  Refusal refused = startCommand(entry, {urls, entry.name(locale), entry.icon(locale), entryPath},
                                 notification.id());
  if (refused)
    notification.withdraw();
  return refused;
}

std::optional<std::string>
ApplicationLauncher::launchProgram(const std::string& path, const std::vector<std::string>& urls) {
  CommandLine line{path};
  for (const std::string& url : urls)
    line.push_back(localPathOfUrl(url).value_or(url));
  return startProgram(std::move(line), {}, {});
}

bool isInstalled(const DesktopEntry& entry) {
  return entry.tryExec().empty() || findProgram(entry.tryExec()).has_value();
}

} // namespace tavrel
