#include "platform/linux/ExecutableScript.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryFile>

#include <csignal>
#include <unistd.h>

namespace tavrel {
namespace {

constexpr int msecsBetweenLooks = 100;
constexpr int msecsToEnd = 2000;
constexpr qsizetype longestLine = 4096;

QString decoded(const std::string& path) {
  return QFile::decodeName(QByteArray::fromStdString(path));
}

void writeSelection(QTemporaryFile& file, const std::vector<std::string>& paths) {
  if (!file.open())
    return;
  for (const std::string& path : paths)
    file.write(path.c_str(), static_cast<qint64>(path.size()) + 1);
  file.flush();
}

/// Standard error by lines; one without an end is told in pieces.
class Lines {
public:
  explicit Lines(const std::function<void(const std::string&)>& report) : report_(report) {}
  void add(const QByteArray& bytes) {
    pending_ += bytes;
    qsizetype end = 0;
    while ((end = pending_.indexOf('\n')) >= 0 || pending_.size() > longestLine)
      take(end >= 0 && end <= longestLine ? end : longestLine);
  }
  void finish() {
    if (!pending_.isEmpty())
      take(pending_.size());
  }

private:
  void take(qsizetype length) {
    report_(pending_.left(length).toStdString());
    const bool endsLine = length < pending_.size() && pending_[length] == '\n';
    pending_.remove(0, length + (endsLine ? 1 : 0));
  }

  const std::function<void(const std::string&)>& report_;
  QByteArray pending_;
};

void signalAll(const QProcess& process, int number) {
  if (process.processId() > 0)
    (void)::kill(-static_cast<pid_t>(process.processId()), number);
}

void stop(QProcess& process) {
  signalAll(process, SIGTERM);
  if (!process.waitForFinished(msecsToEnd))
    signalAll(process, SIGKILL);
  process.waitForFinished(msecsToEnd);
}

void prepare(QProcess& process, const ExecutableScript& script, const QTemporaryFile& selection) {
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert("TAVREL_SELECTION_FILES", selection.fileName());
  environment.insert("TAVREL_HOST_APP", QString::fromStdString(script.hostApplication));
  process.setProcessEnvironment(environment);
  QStringList arguments;
  for (const std::string& path : script.files)
    arguments << decoded(path);
  process.setProgram(decoded(script.path));
  process.setArguments(arguments);
  process.setStandardOutputFile(QProcess::nullDevice());
  process.setChildProcessModifier([] { ::setsid(); }); // so that all it starts can be ended with it
}

} // namespace

int runExecutableScript(const ExecutableScript& script, const ScriptProcessWatch& watch) {
  QTemporaryFile selection;
  writeSelection(selection, script.files);
  QProcess process;
  prepare(process, script, selection);
  process.start();
  if (!process.waitForStarted())
    return -1;
  process.write(script.text.data(), static_cast<qint64>(script.text.size()));
  process.closeWriteChannel();
  Lines lines(watch.report);
  while (process.state() != QProcess::NotRunning && !process.waitForFinished(msecsBetweenLooks)) {
    lines.add(process.readAllStandardError());
    if (watch.shouldStop())
      stop(process);
  }
  lines.add(process.readAllStandardError());
  lines.finish();
  return process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
}

} // namespace tavrel
