#include "platform/linux/processes/ChildProcess.h"

#include "platform/linux/processes/ProcessStart.h"
#include "platform/linux/system/BrokenPipeGuard.h"

#include <array>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <sys/syscall.h>
#include <sys/wait.h>

namespace tavrel {
namespace {

struct Pipe {
  FileDescriptor reading;
  FileDescriptor writing;
};

Pipe makePipe() {
  int ends[2] = {-1, -1};
  (void)!::pipe2(ends, O_CLOEXEC); // one that fails leaves -1, which the caller looks for
  return {FileDescriptor(ends[0]), FileDescriptor(ends[1])};
}

Pipe nowhere() {
  return {FileDescriptor(), FileDescriptor(::open("/dev/null", O_WRONLY | O_CLOEXEC))};
}

/// One pipe full at a time: a script that never stops talking must not keep us from looking up.
void readPipeful(FileDescriptor& end, const std::function<void(std::string_view)>& take) {
  std::array<char, 65536> buffer;
  const ssize_t count = end.isOpen() ? ::read(end.get(), buffer.data(), buffer.size()) : -1;
  if (count > 0)
    take({buffer.data(), static_cast<std::size_t>(count)});
  else if (count == 0)
    end.close();
}

void neverWaitOn(const FileDescriptor& end) {
  (void)::fcntl(end.get(), F_SETFL, ::fcntl(end.get(), F_GETFL) | O_NONBLOCK);
}

void waitForEnd(pid_t process) {
  while (::waitpid(process, nullptr, 0) < 0 && errno == EINTR) {
  }
}

/// Made before the fork: after it nothing may allocate.
struct PreparedProgram {
  const char* program;
  const char* folder; ///< null: ours
  char* const* arguments;
  char* const* environment;
  int input;
  int output;
  int errors;
  int report;
};

/// Out of the way of 0, 1 and 2, which are about to be replaced.
int movedUp(int descriptor) {
  return ::fcntl(descriptor, F_DUPFD_CLOEXEC, 3);
}

[[noreturn]] void become(const PreparedProgram& prepared) {
  const int report = movedUp(prepared.report);
  const int input = movedUp(prepared.input);
  const int output = movedUp(prepared.output);
  const int errors = movedUp(prepared.errors);
  ::setsid(); // so that all it starts can be ended with it
  if (::dup2(input, STDIN_FILENO) < 0 || ::dup2(output, STDOUT_FILENO) < 0 ||
      ::dup2(errors, STDERR_FILENO) < 0)
    giveUpChild(report);
  if (prepared.folder != nullptr && ::chdir(prepared.folder) != 0)
    giveUpChild(report);
  resetSignals();
  closeOthersOnExec();
  ::execve(prepared.program, prepared.arguments, prepared.environment);
  giveUpChild(report);
}

} // namespace

ChildProcess::ChildProcess(const ProcessRequest& request, std::string_view input,
                           ProgramListeners listeners)
    : listeners_(std::move(listeners)), input_(input) {
  if (const int reason = start(request); reason != 0)
    outcome_ = {ProgramOutcome::Ending::notStarted, reason};
}

ChildProcess::~ChildProcess() {
  if (process_ == 0 || outcome_)
    return;
  signalAll(SIGKILL);
  waitForEnd(process_);
}

int ChildProcess::start(const ProcessRequest& request) {
  std::vector<std::string> arguments = request.arguments;
  std::vector<std::string> environment = childEnvironment(request.environment);
  const std::vector<char*> argumentList = pointersTo(arguments);
  const std::vector<char*> environmentList = pointersTo(environment);
  Pipe input = makePipe();
  Pipe errors = makePipe();
  Pipe report = makePipe();
  Pipe output = listeners_.output ? makePipe() : nowhere();
  if (!input.reading.isOpen() || !errors.reading.isOpen() || !report.reading.isOpen() ||
      !output.writing.isOpen())
    return errno;
  const PreparedProgram prepared{
      request.program.c_str(), request.folder.empty() ? nullptr : request.folder.c_str(),
      argumentList.data(),     environmentList.data(),
      input.reading.get(),     output.writing.get(),
      errors.writing.get(),    report.writing.get()};
  const pid_t child = ::fork();
  if (child == 0)
    become(prepared);
  if (child < 0)
    return errno;
  report.writing.close();
  if (const std::error_code error = readChildReport(report.reading.get())) {
    waitForEnd(child);
    return error.value();
  }
  inputEnd_ = std::move(input.writing);
  errorEnd_ = std::move(errors.reading);
  outputEnd_ = std::move(output.reading);
  follow(child);
  return 0;
}

void ChildProcess::follow(pid_t process) {
  process_ = process;
  processEnd_ = FileDescriptor(static_cast<int>(::syscall(SYS_pidfd_open, process, 0)));
  neverWaitOn(inputEnd_);
  neverWaitOn(errorEnd_);
  neverWaitOn(outputEnd_);
  writeInput();
}

std::optional<ProgramOutcome> ChildProcess::serve(int milliseconds) {
  if (process_ == 0)
    return outcome_;
  // Where the kernel has no descriptors of processes, its -1 is passed over and the time decides.
  std::array<pollfd, 4> watched = {
      pollfd{processEnd_.get(), POLLIN, 0}, pollfd{inputEnd_.get(), POLLOUT, 0},
      pollfd{errorEnd_.get(), POLLIN, 0}, pollfd{outputEnd_.get(), POLLIN, 0}};
  (void)::poll(watched.data(), watched.size(), milliseconds);
  if (!outcome_)
    outcome_ = reap(); // before the last look at what it said, so that none of it is missed
  writeInput();
  readErrors();
  readOutput();
  return outcome_;
}

bool ChildProcess::signalAll(int number) const {
  return process_ > 0 && ::kill(-process_, number) == 0;
}

void ChildProcess::writeInput() {
  const BrokenPipeGuard guard;
  while (inputEnd_.isOpen() && !input_.empty()) {
    const ssize_t count = ::write(inputEnd_.get(), input_.data(), input_.size());
    if (count < 0 && errno == EAGAIN)
      return;
    if (count < 0 && errno != EINTR)
      input_ = {}; // a script need not read it
    if (count > 0)
      input_.remove_prefix(static_cast<std::size_t>(count));
  }
  inputEnd_.close();
}

void ChildProcess::readErrors() {
  readPipeful(errorEnd_, listeners_.errors);
}

void ChildProcess::readOutput() {
  readPipeful(outputEnd_, listeners_.output);
}

std::optional<ProgramOutcome> ChildProcess::reap() {
  int status = 0;
  const pid_t ended = ::waitpid(process_, &status, WNOHANG);
  if (ended == 0 || (ended < 0 && errno == EINTR))
    return std::nullopt;
  processEnd_.close();
  inputEnd_.close();
  if (ended > 0 && WIFSIGNALED(status))
    return ProgramOutcome{ProgramOutcome::Ending::signalled, WTERMSIG(status)};
  return ProgramOutcome{ProgramOutcome::Ending::exited, ended > 0 ? WEXITSTATUS(status) : 0};
}

} // namespace tavrel
