#pragma once

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QProcess>
#include <QStringList>

#include <concepts>

namespace tavrel {

/// Runs the event loop until the condition holds; false when it does not within five seconds.
[[nodiscard]] bool eventually(std::predicate auto condition) {
  const QDeadlineTimer deadline(5000);
  while (!condition()) {
    if (deadline.hasExpired())
      return false;
    QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 10);
  }
  return true;
}

/// Posts pointer and key events with the program of that name.
inline void xdotool(const QStringList& arguments) {
  QProcess::execute(QStringLiteral("xdotool"), arguments);
}

/// A process that is ended with the object.
class Program {
public:
  explicit Program(const QString& name, const QStringList& arguments = {}) {
    process_.setStandardOutputFile(QProcess::nullDevice());
    process_.setStandardErrorFile(QProcess::nullDevice());
    process_.start(name, arguments);
    process_.waitForStarted();
  }
  ~Program() { end(); }
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  [[nodiscard]] bool runs() const { return process_.state() == QProcess::Running; }
  void end() {
    process_.terminate();
    if (!process_.waitForFinished(3000)) {
      process_.kill();
      process_.waitForFinished(3000);
    }
  }

private:
  QProcess process_;
};

} // namespace tavrel
