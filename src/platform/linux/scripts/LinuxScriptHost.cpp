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

constexpr double secondsBetweenLooks = 0.1;

using Ask = HostAnswer (*)(ScriptDesktop&, const HostEvent&);

Ask askOf(const std::string& application) {
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

// What is to end asks for nothing more, and what it waited for counts as refused.
HostAnswer LinuxScriptHost::perform(const HostEvent& event) {
  const HostError stopped{errors::userCanceled, "User canceled."};
  if (shouldStop())
    return stopped;
  HostAnswer answer =
      event.application.empty() ? addition(event) : askOf(event.application)(desktop_, event);
  return shouldStop() ? HostAnswer(stopped) : answer;
}

HostAnswer LinuxScriptHost::addition(const HostEvent& event) {
  if (event.command == "do shell script")
    return runShellScript(event, [this] { return shouldStop(); });
  if (event.command == "delay")
    return delay(event);
  const DialogWatch watch([this] { return shouldStop(); });
  for (const ScriptCommands* each : {&additionCommands(), &fileCommands(), &dialogCommands()}) {
    const auto command = each->find(event.command);
    if (command != each->end())
      return command->second(desktop_, event);
  }
  return HostError{errors::notUnderstood, "“" + event.command + "” is not understood here."};
}

HostAnswer LinuxScriptHost::delay(const HostEvent& event) {
  double left = event.direct ? scriptNumber(*event.direct).value_or(0) : 1;
  for (; left > 0 && !shouldStop(); left -= secondsBetweenLooks)
    desktop_.clock.sleep(std::min(left, secondsBetweenLooks));
  return HostValue{};
}

double LinuxScriptHost::now() {
  constexpr double secondsTo2001 = 978307200;
  const QDateTime time = QDateTime::currentDateTime();
  return static_cast<double>(time.toSecsSinceEpoch()) + time.offsetFromUtc() - secondsTo2001;
}

bool LinuxScriptHost::shouldStop() {
  return runs_.shouldStop() || TerminationSignals::wereReceived();
}

} // namespace tavrel
