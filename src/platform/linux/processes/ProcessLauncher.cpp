#include "platform/linux/processes/ProcessLauncher.h"

#include "platform/linux/processes/ProcessStart.h"
#include "platform/linux/system/FileDescriptor.h"

#include <cstdlib>
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tavrel {

namespace {

/// The root where there is no home to go to: that is no reason not to start.
std::string startFolder() {
  const char* home = std::getenv("HOME");
  return home != nullptr && ::access(home, X_OK) == 0 ? home : "/";
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

void emptyStandardInput() {
  const int null = ::open("/dev/null", O_RDONLY);
  if (null > 0) {
    (void)::dup2(null, STDIN_FILENO);
    (void)::close(null);
  }
}

[[noreturn]] void become(const Prepared& prepared) {
  ::setsid();
  const pid_t child = ::fork(); // whose parent ends at once, so that init reaps it
  if (child < 0)
    giveUpChild(prepared.report);
  if (child > 0)
    ::_exit(0);
  emptyStandardInput();
  resetSignals();
  closeOthersOnExec();
  if (::chdir(prepared.folder) != 0)
    giveUpChild(prepared.report);
  ::execve(prepared.program, prepared.arguments, prepared.environment);
  giveUpChild(prepared.report);
}

void reap(pid_t child) {
  while (::waitpid(child, nullptr, 0) < 0 && errno == EINTR) {
  }
}

} // namespace

std::error_code startProcess(const ProcessRequest& request) {
  std::vector<std::string> arguments = request.arguments;
  std::vector<std::string> environment = childEnvironment(request.environment);
  const std::vector<char*> argumentList = pointersTo(arguments);
  const std::vector<char*> environmentList = pointersTo(environment);
  const std::string folder = request.folder.empty() ? startFolder() : request.folder;
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
  const std::error_code error = readChildReport(reading.get());
  reap(child);
  return error;
}

} // namespace tavrel
