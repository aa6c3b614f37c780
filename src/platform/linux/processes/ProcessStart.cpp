#include "platform/linux/processes/ProcessStart.h"

#include "platform/linux/processes/StartTimes.h"
#include "platform/linux/system/FileDescriptor.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <fcntl.h>
#include <linux/close_range.h>
#include <string_view>
#include <sys/syscall.h>
#include <sys/wait.h>

namespace tavrel {

namespace {

/// What our own starter set for this process alone: startup notification, D-Bus activation, and the
/// supervision of services.
constexpr std::array<std::string_view, 15> perProcessVariables = {"DESKTOP_STARTUP_ID",
                                                                  "XDG_ACTIVATION_TOKEN",
                                                                  "DESKTOP_AUTOSTART_ID",
                                                                  "GIO_LAUNCHED_DESKTOP_FILE",
                                                                  "GIO_LAUNCHED_DESKTOP_FILE_PID",
                                                                  "DBUS_STARTER_ADDRESS",
                                                                  "DBUS_STARTER_BUS_TYPE",
                                                                  "NOTIFY_SOCKET",
                                                                  "LISTEN_FDS",
                                                                  "LISTEN_PID",
                                                                  "LISTEN_FDNAMES",
                                                                  "INVOCATION_ID",
                                                                  "JOURNAL_STREAM",
                                                                  "WATCHDOG_PID",
                                                                  "WATCHDOG_USEC"};

bool isForThisProcess(std::string_view name) {
  return name.starts_with("TAVREL_") ||
         std::find(perProcessVariables.begin(), perProcessVariables.end(), name) !=
             perProcessVariables.end();
}

/// The kernel's own sigaction structure; all zero is the default action.
struct KernelSignalAction {
  void (*handler)(int);
  unsigned long flags;
  void (*restorer)();
  std::uint64_t mask;
};

/// The home folder; the root when that cannot be entered, so that the program starts all the same.
std::string startFolder() {
  const char* home = std::getenv("HOME");
  return home != nullptr && ::access(home, X_OK) == 0 ? home : "/";
}

/// All that the new process needs, made before the fork: after it nothing may allocate.
struct DetachedProgram {
  const char* program;
  const char* folder;
  char* const* arguments;
  char* const* environment;
  int errorPipe; ///< an errno is written here when the program cannot run
};

void emptyStandardInput() {
  const int null = ::open("/dev/null", O_RDONLY);
  if (null > 0) {
    (void)::dup2(null, STDIN_FILENO);
    (void)::close(null);
  }
}

[[noreturn]] void execDetached(const DetachedProgram& prepared) {
  ::setsid();
  const pid_t child = ::fork(); // its parent ends at once, so that init reaps it
  if (child < 0)
    reportErrnoAndExit(prepared.errorPipe);
  if (child > 0)
    ::_exit(0);
  emptyStandardInput();
  resetSignalHandlers();
  closeOtherFilesOnExec();
  if (::chdir(prepared.folder) != 0)
    reportErrnoAndExit(prepared.errorPipe);
  ::execve(prepared.program, prepared.arguments, prepared.environment);
  reportErrnoAndExit(prepared.errorPipe);
}

} // namespace

std::vector<std::string> childEnvironment(const std::map<std::string, std::string>& added) {
  std::vector<std::string> result;
  for (char** each = environ; *each != nullptr; ++each) {
    const std::string_view variable = *each;
    const std::string_view name = variable.substr(0, variable.find('='));
    if (!isForThisProcess(name) && !added.contains(std::string(name)))
      result.emplace_back(variable);
  }
  for (const auto& [name, value] : added)
    result.push_back(name + "=" + value);
  return result;
}

std::vector<char*> nullTerminatedPointers(std::vector<std::string>& texts) {
  std::vector<char*> result;
  for (std::string& text : texts)
    result.push_back(text.data());
  result.push_back(nullptr);
  return result;
}

void resetSignalHandlers() {
  // By the system call, because glibc's sigaction refuses its two internal signals (32 and 33). One
  // of them that was ignored when we started would stay ignored in every program we start.
  const KernelSignalAction standard{};
  for (int number = 1; number < NSIG; ++number)
    (void)::syscall(SYS_rt_sigaction, number, &standard, nullptr, sizeof standard.mask);
  sigset_t none;
  ::sigemptyset(&none);
  (void)::sigprocmask(SIG_SETMASK, &none, nullptr);
}

void closeOtherFilesOnExec() {
  (void)::close_range(3, ~0U, CLOSE_RANGE_CLOEXEC);
}

void reportErrnoAndExit(int pipe) {
  const int reason = errno;
  (void)!::write(pipe, &reason, sizeof reason);
  ::_exit(1);
}

std::error_code readReportedError(int pipe) {
  int reason = 0;
  ssize_t count = 0;
  do
    count = ::read(pipe, &reason, sizeof reason);
  while (count < 0 && errno == EINTR);
  return count == sizeof reason ? std::error_code(reason, std::generic_category())
                                : std::error_code();
}

void reapChild(pid_t child) {
  while (::waitpid(child, nullptr, 0) < 0 && errno == EINTR) {
  }
}

std::error_code startDetachedProcess(const ProcessRequest& request) {
  std::vector<std::string> arguments = request.arguments;
  std::vector<std::string> environment = childEnvironment(request.environment);
  const std::vector<char*> argumentList = nullTerminatedPointers(arguments);
  const std::vector<char*> environmentList = nullTerminatedPointers(environment);
  const std::string folder = request.folder.empty() ? startFolder() : request.folder;
  int ends[2];
  if (::pipe2(ends, O_CLOEXEC) != 0)
    return lastError();
  FileDescriptor reading(ends[0]);
  FileDescriptor writing(ends[1]);
  const DetachedProgram prepared{request.program.c_str(), folder.c_str(), argumentList.data(),
                                 environmentList.data(), writing.get()};
  noteProgramStart();
  const pid_t child = ::fork();
  if (child == 0)
    execDetached(prepared);
  if (child < 0)
    return lastError();
  writing.close();
  const std::error_code error = readReportedError(reading.get());
  reapChild(child);
  return error;
}

} // namespace tavrel
