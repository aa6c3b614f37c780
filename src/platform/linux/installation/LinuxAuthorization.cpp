#include "platform/linux/installation/LinuxAuthorization.h"

#include "platform/linux/installation/ThisInstallation.h"
#include "platform/linux/system/UserFolders.h"

#include <QEventLoop>
#include <QLoggingCategory>
#include <QProcess>

namespace tavrel {

namespace {

Q_LOGGING_CATEGORY(authorizationLog, "tavrel.authorization")

constexpr const char* uninstallRight = "qorvane.tavrel.uninstall";
constexpr int removalTimeoutMsecs = 60000; ///< for one component

QByteArray takeFirst(QByteArray& bytes, std::size_t size) {
  const QByteArray taken = bytes.left(static_cast<qsizetype>(size));
  bytes.remove(0, taken.size());
  return taken;
}

class HelperSession final : public AuthorizationRef {
public:
  explicit HelperSession(std::vector<std::string> command) : command_(std::move(command)) {}

  bool copyRights(const std::string& right, std::uint32_t flags) override;
  std::optional<ToolOutput>
  executeWithPrivileges(const std::string& tool,
                        const std::vector<std::string>& arguments) override;
  void free(std::uint32_t flags) override;

private:
  [[nodiscard]] bool isReady();
  [[nodiscard]] QByteArray answer();

  std::vector<std::string> command_;
  QProcess helper_;
};

// Without a timeout: meanwhile the desktop's dialog asks the user for a password.
bool HelperSession::copyRights(const std::string& right, std::uint32_t flags) {
  if (right != uninstallRight || (flags & authorizationFlag::interactionAllowed) == 0)
    return false;
  QStringList arguments;
  for (const std::string& each : command_)
    arguments.append(QString::fromStdString(each));
  helper_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
  QEventLoop waiting;
  QObject::connect(&helper_, &QProcess::readyReadStandardOutput, &waiting, &QEventLoop::quit);
  QObject::connect(&helper_, &QProcess::finished, &waiting, &QEventLoop::quit);
  QObject::connect(&helper_, &QProcess::errorOccurred, &waiting, &QEventLoop::quit);
  const QString program = arguments.takeFirst();
  helper_.start(program, arguments);
  while (helper_.state() != QProcess::NotRunning && !helper_.canReadLine())
    if (waiting.exec() != 0) {
      helper_.kill(); // exec() gives 1 and more when this program is told to end
      return false;
    }
  return isReady();
}

bool HelperSession::isReady() {
  if (helper_.error() == QProcess::FailedToStart)
    qCWarning(authorizationLog, "%s cannot be started: nobody can be asked for rights",
              command_.front().c_str());
  return helper_.canReadLine() && helper_.readLine() == "ready\n";
}

std::optional<ToolOutput>
HelperSession::executeWithPrivileges(const std::string& tool,
                                     const std::vector<std::string>& arguments) {
  const bool removes = tool == "/bin/rm" && arguments.size() == 2 && arguments[0] == "-rf";
  const auto component = removes ? installedComponent(arguments[1], homeFolder()) : std::nullopt;
  if (!component || helper_.state() != QProcess::Running)
    return std::nullopt;
  helper_.write(QByteArray(componentName(*component)).append('\n'));
  return
      [rest = answer()](std::size_t size) mutable { return takeFirst(rest, size).toStdString(); };
}

QByteArray HelperSession::answer() {
  QByteArray output;
  while (!output.endsWith('\0') && helper_.waitForReadyRead(removalTimeoutMsecs))
    output.append(helper_.readAll());
  if (output.endsWith('\0'))
    output.chop(1);
  return output;
}

void HelperSession::free(std::uint32_t) {
  helper_.closeWriteChannel();
  if (helper_.state() != QProcess::NotRunning && !helper_.waitForFinished())
    helper_.kill();
}

} // namespace

std::unique_ptr<AuthorizationRef> LinuxAuthorization::create() {
  return command_.empty() ? nullptr : std::make_unique<HelperSession>(command_);
}

std::vector<std::string> uninstallHelperCommand() {
  return {"pkexec", installationFolders().prefix + "/libexec/tavrel/tavrel-uninstall-helper"};
}

} // namespace tavrel
