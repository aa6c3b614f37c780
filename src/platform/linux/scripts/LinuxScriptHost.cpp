#include "platform/linux/scripts/LinuxScriptHost.h"

#include "platform/linux/scripts/ScriptAdditions.h"
#include "platform/linux/scripts/ScriptApplications.h"
#include "platform/linux/scripts/ScriptArguments.h"
#include "platform/linux/scripts/ScriptDialogs.h"
#include "platform/linux/scripts/ScriptShell.h"
#include "platform/linux/system/TerminationSignals.h"
#include "script/ScriptError.h"

#include <QDateTime>

#include <algorithm>

namespace tavrel {

using namespace script;

namespace {

constexpr double stopPollSeconds = 0.1;

using EventHandler = HostAnswer (*)(ScriptDesktop&, const HostEvent&);

EventHandler handlerFor(const std::string& application) {
  const QString name = QString::fromStdString(application).toLower();
  if (name == "finder" || name == "path finder")
    return askFileManager;
  if (name == "terminal")
    return askTerminal;
  if (name == "system preferences")
    return askPreferences;
  if (name == "tavrel")
    return askTavrel;
  return name == "system events" ? askSystemEvents : askApplication;
}

} // namespace

// A script that is to stop gets nothing more: whatever it waited for is an error.
HostAnswer LinuxScriptHost::perform(const HostEvent& event) {
  const HostError stopped{errors::userCanceled, "User canceled."};
  if (shouldStop())
    return stopped;
  HostAnswer answer = event.application.empty() ? runAddition(event)
                                                : handlerFor(event.application)(desktop_, event);
  return shouldStop() ? HostAnswer(stopped) : answer;
}

HostAnswer LinuxScriptHost::runAddition(const HostEvent& event) {
  if (event.command == "do shell script")
    return runShellScript(event, [this] { return shouldStop(); });
  if (event.command == "delay")
    return delay(event);
  const DialogCanceller canceller([this] { return shouldStop(); });
  for (const ScriptCommands* each : {&additionCommands(), &fileCommands(), &dialogCommands()}) {
    const auto command = each->find(event.command);
    if (command != each->end())
      return command->second(desktop_, event);
  }
  return HostError{errors::notUnderstood, "“" + event.command + "” is not understood here."};
}

HostAnswer LinuxScriptHost::delay(const HostEvent& event) {
  double remaining = event.direct ? scriptNumber(*event.direct).value_or(0) : 1;
  for (; remaining > 0 && !shouldStop(); remaining -= stopPollSeconds)
    desktop_.clock.sleep(std::min(remaining, stopPollSeconds));
  return HostValue{};
}

double LinuxScriptHost::now() {
  constexpr double secondsTo2001 = 978307200;
  const QDateTime time = QDateTime::currentDateTime();
  return static_cast<double>(time.toSecsSinceEpoch()) + time.offsetFromUtc() - secondsTo2001;
}

bool LinuxScriptHost::shouldStop() {
  return longRunningScripts_.shouldStop() || TerminationSignals::wereReceived();
}

} // namespace tavrel
