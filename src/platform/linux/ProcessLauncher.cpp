#include "platform/linux/ProcessLauncher.h"

#include "platform/linux/FileDescriptor.h"

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
#include <unistd.h>

namespace tavrel {

namespace {

/// What whoever started us told us alone: start-up notices, service supervision.
constexpr std::array<std::string_view, 15> ownVariables = {"DESKTOP_STARTUP_ID",
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

bool isOurs(std::string_view name) {
  return name.starts_with("TAVREL_") ||
         std::find(ownVariables.begin(), ownVariables.end(), name) != ownVariables.end();
}

std::vector<std::string> environmentFor(const ProcessRequest& request) {
  std::vector<std::string> result;
  for (char** each = environ; *each != nullptr; ++each) {
    const std::string_view variable = *each;
    const std::string_view name = variable.substr(0, variable.find('='));
    if (!isOurs(name) && !request.environment.contains(std::string(name)))
      result.emplace_back(variable);
  }
  for (const auto& [name, value] : request.environment)
    result.push_back(name + "=" + value);
  return result;
}

/// The root where there is no home to go to: that is no reason not to start.
std::string homeFolder() {
  const char* home = std::getenv("HOME");
  return home != nullptr && ::access(home, X_OK) == 0 ? home : "/";
}

std::vector<char*> pointers(std::vector<std::string>& texts) {
  std::vector<char*> result;
  for (std::string& text : texts)
    result.push_back(text.data());
  result.push_back(nullptr);
  return result;
}

/// All that the new process needs, made before there are two: between fork and exec nothing may
/// allocate, for another thread may have held the allocator.
struct Prepared {
  const char* program;
  const char* folder;
  char* const* arguments;
  char* const* environment;
  int report; ///< an errno is written here when the program cannot run
};

/// What the kernel is told of a signal; all zero is the default action.
struct KernelSignalAction {
  void (*handler)(int);
  unsigned long flags;
  void (*restorer)();
  std::uint64_t mask;
};

void resetSignals() {
  // Not through the C library: it keeps two signals to itself and refuses to reset them, while one
  // that is ignored stays so in every program that is started from here on.
  const KernelSignalAction standard{};
  for (int number = 1; number < NSIG; ++number)
    (void)::syscall(SYS_rt_sigaction, number, &standard, nullptr, sizeof standard.mask);
  sigset_t none;
  ::sigemptyset(&none);
  (void)::sigprocmask(SIG_SETMASK, &none, nullptr);
}

void emptyStandardInput() {
  const int null = ::open("/dev/null", O_RDONLY);
  if (null > 0) {
    (void)::dup2(null, STDIN_FILENO);
    (void)::close(null);
  }
}

[[noreturn]] void giveUp(int report) {
  const int reason = errno;
  (void)!::write(report, &reason, sizeof reason);
  ::_exit(1);
}

[[noreturn]] void become(const Prepared& prepared) {
  ::setsid();
  const pid_t child = ::fork(); // whose parent ends at once, so that init reaps it
  if (child < 0)
    giveUp(prepared.report);
  if (child > 0)
    ::_exit(0);
  emptyStandardInput();
  resetSignals();
  (void)::close_range(3, ~0U, CLOSE_RANGE_CLOEXEC);
  if (::chdir(prepared.folder) != 0)
    giveUp(prepared.report);
  ::execve(prepared.program, prepared.arguments, prepared.environment);
  giveUp(prepared.report);
}

/// Waits until the program runs (the pipe closes by itself) or its failure is told.
std::error_code readReport(int report) {
  int reason = 0;
  ssize_t count = 0;
  do
    count = ::read(report, &reason, sizeof reason);
  while (count < 0 && errno == EINTR);
  return count == sizeof reason ? std::error_code(reason, std::generic_category())
                                : std::error_code();
}

void reap(pid_t child) {
  while (::waitpid(child, nullptr, 0) < 0 && errno == EINTR) {
  }
}

} // namespace

std::error_code startProcess(const ProcessRequest& request) {
  std::vector<std::string> arguments = request.arguments;
  std::vector<std::string> environment = environmentFor(request);
  const std::vector<char*> argumentList = pointers(arguments);
  const std::vector<char*> environmentList = pointers(environment);
  const std::string folder = request.folder.empty() ? homeFolder() : request.folder;
  int ends[2];
  if (::pipe2(ends, O_CLOEXEC) != 0)
    return lastError();
  FileDescriptor reading(ends[0]);
  FileDescriptor writing(ends[1]);
  const Prepared prepared{request.program.c_str(), folder.c_str(), argumentList.data(),
                          environmentList.data(), writing.get()};
  const pid_t child = ::fork();
  if (child == 0)
    become(prepared);
  if (child < 0)
    return lastError();
  writing.close();
  const std::error_code error = readReport(reading.get());
  reap(child);
  return error;
}

} // namespace tavrel
