#include "platform/linux/processes/ProcessStart.h"

#include "platform/linux/system/FileDescriptor.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdint>
#include <linux/close_range.h>
#include <string_view>
#include <sys/syscall.h>

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

/// What the kernel is told of a signal; all zero is the default action.
struct KernelSignalAction {
  void (*handler)(int);
  unsigned long flags;
  void (*restorer)();
  std::uint64_t mask;
};

} // namespace

std::vector<std::string> childEnvironment(const std::map<std::string, std::string>& added) {
  std::vector<std::string> result;
  for (char** each = environ; *each != nullptr; ++each) {
    const std::string_view variable = *each;
    const std::string_view name = variable.substr(0, variable.find('='));
    if (!isOurs(name) && !added.contains(std::string(name)))
      result.emplace_back(variable);
  }
  for (const auto& [name, value] : added)
    result.push_back(name + "=" + value);
  return result;
}

std::vector<char*> pointersTo(std::vector<std::string>& texts) {
  std::vector<char*> result;
  for (std::string& text : texts)
    result.push_back(text.data());
  result.push_back(nullptr);
  return result;
}

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

void closeOthersOnExec() {
  (void)::close_range(3, ~0U, CLOSE_RANGE_CLOEXEC);
}

void giveUpChild(int report) {
  const int reason = errno;
  (void)!::write(report, &reason, sizeof reason);
  ::_exit(1);
}

std::error_code readChildReport(int report) {
  int reason = 0;
  ssize_t count = 0;
  do
    count = ::read(report, &reason, sizeof reason);
  while (count < 0 && errno == EINTR);
  return count == sizeof reason ? std::error_code(reason, std::generic_category())
                                : std::error_code();
}

} // namespace tavrel
