#include "platform/linux/ScriptShell.h"

#include "platform/linux/ScriptArguments.h"
#include "script/ScriptError.h"

#include <QProcess>

#include <algorithm>

namespace tavrel {
namespace {

constexpr int msecsBetweenLooks = 100;
constexpr int msecsToEnd = 2000;
constexpr qint64 mostOutput = 256LL << 20U;

std::string withoutLastLineFeed(std::string text) {
  if (text.ends_with('\n'))
    text.pop_back();
  return text;
}

void end(QProcess& process) {
  process.terminate();
  if (!process.waitForFinished(msecsToEnd))
    process.kill();
  process.waitForFinished(msecsToEnd);
}

script::HostAnswer answerOf(QProcess& process, const script::HostEvent& event) {
  std::string output = withoutLastLineFeed(process.readAllStandardOutput().toStdString());
  if (process.exitStatus() != QProcess::NormalExit)
    return script::HostError{script::errors::general, "The command was ended by a signal."};
  if (process.exitCode() != 0) {
    std::string message = withoutLastLineFeed(process.readAllStandardError().toStdString());
    if (message.empty())
      message.append("The command exited with a non-zero status.");
    return script::HostError{process.exitCode(), std::move(message)};
  }
  if (flagParameter(event, "altering line endings", true))
    std::replace(output.begin(), output.end(), '\n', '\r');
  return script::HostValue{QString::fromStdString(output).toStdString()};
}

} // namespace

script::HostAnswer runShellScript(const script::HostEvent& event,
                                  const std::function<bool()>& shouldStop) {
  QProcess process;
  QStringList arguments{"-c", QString::fromStdString(directText(event))};
  const bool asAdministrator = flagParameter(event, "administrator privileges", false);
  if (asAdministrator)
    arguments.prepend("/bin/sh");
  process.setWorkingDirectory("/");
  process.setStandardInputFile(QProcess::nullDevice());
  process.start(asAdministrator ? "pkexec" : "/bin/sh", arguments);
  if (!process.waitForStarted())
    return script::HostError{script::errors::fileNotFound, "The shell can’t be started."};
  while (!process.waitForFinished(msecsBetweenLooks))
    if (process.state() == QProcess::NotRunning)
      break;
    else if (shouldStop() || process.bytesAvailable() > mostOutput) {
      end(process);
      return script::HostError{script::errors::userCanceled, "User canceled."};
    }
  return answerOf(process, event);
}

} // namespace tavrel
