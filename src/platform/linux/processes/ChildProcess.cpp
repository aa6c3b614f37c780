#include "platform/linux/processes/ChildProcess.h"

#include "platform/linux/processes/ProcessStart.h"
#include "platform/linux/processes/StartTimes.h"
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
  (void)!::pipe2(ends, O_CLOEXEC); // when it fails both ends stay -1, which the caller checks
  return {FileDescriptor(ends[0]), FileDescriptor(ends[1])};
}

Pipe toDevNull() {
  return {FileDescriptor(), FileDescriptor(::open("/dev/null", O_WRONLY | O_CLOEXEC))};
}

/// One buffer at a time: a program that prints without end must not keep us from checking whether
/// to stop it.
void readAvailable(FileDescriptor& end, const std::function<void(std::string_view)>& handler) {
  std::array<char, 65536> buffer;
  const ssize_t count = end.isOpen() ? ::read(end.get(), buffer.data(), buffer.size()) : -1;
  if (count > 0)
    handler({buffer.data(), static_cast<std::size_t>(count)});
  else if (count == 0)
    end.close();
}

void makeNonBlocking(const FileDescriptor& end) {
  (void)::fcntl(end.get(), F_SETFL, ::fcntl(end.get(), F_GETFL) | O_NONBLOCK);
}

/// All that the child needs, made before the fork: after it nothing may allocate.
struct ChildProgram {
  const char* program;
  const char* folder; ///< null: ours
  char* const* arguments;
  char* const* environment;
  int input;
  int output;
  int errors;
  int errorPipe;
};

/// A copy above 2, for descriptors 0, 1 and 2 are about to be replaced.
int duplicateAboveTwo(int descriptor) {
  return ::fcntl(descriptor, F_DUPFD_CLOEXEC, 3);
}

[[noreturn]] void execChild(const ChildProgram& prepared) {
  const int errorPipe = duplicateAboveTwo(prepared.errorPipe);
  const int input = duplicateAboveTwo(prepared.input);
  const int output = duplicateAboveTwo(prepared.output);
  const int errors = duplicateAboveTwo(prepared.errors);
  ::setsid(); // a process group of its own, so that all it starts can be signalled with it
  if (::dup2(input, STDIN_FILENO) < 0 || ::dup2(output, STDOUT_FILENO) < 0 ||
      ::dup2(errors, STDERR_FILENO) < 0)
    reportErrnoAndExit(errorPipe);
  if (prepared.folder != nullptr && ::chdir(prepared.folder) != 0)
    reportErrnoAndExit(errorPipe);
  resetSignalHandlers();
  closeOtherFilesOnExec();
  ::execve(prepared.program, prepared.arguments, prepared.environment);
  reportErrnoAndExit(errorPipe);
}

} // namespace

ChildProcess::ChildProcess(const ProcessRequest& request, std::string_view input,
                           const ProgramWatch& watch)
    : watch_(watch), input_(input) {
  if (const int reason = start(request); reason != 0)
    outcome_ = {ProgramOutcome::Ending::notStarted, reason};
}

ChildProcess::~ChildProcess() {
  if (process_ == 0 || outcome_)
    return;
  signalGroup(SIGKILL);
  reapChild(process_);
}

int ChildProcess::start(const ProcessRequest& request) {
  std::vector<std::string> arguments = request.arguments;
  std::vector<std::string> environment = childEnvironment(request.environment);
  const std::vector<char*> argumentList = nullTerminatedPointers(arguments);
  const std::vector<char*> environmentList = nullTerminatedPointers(environment);
  Pipe input = makePipe();
  Pipe errors = makePipe();
  Pipe errorPipe = makePipe();
  Pipe output = watch_.output ? makePipe() : toDevNull();
  if (!input.reading.isOpen() || !errors.reading.isOpen() || !errorPipe.reading.isOpen() ||
      !output.writing.isOpen())
    return errno;
  const ChildProgram prepared{
      request.program.c_str(), request.folder.empty() ? nullptr : request.folder.c_str(),
      argumentList.data(),     environmentList.data(),
      input.reading.get(),     output.writing.get(),
      errors.writing.get(),    errorPipe.writing.get()};
  noteProgramStart();
  const pid_t child = ::fork();
  if (child == 0)
    execChild(prepared);
  if (child < 0)
    return errno;
  errorPipe.writing.close();
  if (const std::error_code error = readReportedError(errorPipe.reading.get())) {
    reapChild(child);
    return error.value();
  }
  inputEnd_ = std::move(input.writing);
  errorEnd_ = std::move(errors.reading);
  outputEnd_ = std::move(output.reading);
  serveChild(child);
  return 0;
}

void ChildProcess::serveChild(pid_t process) {
  process_ = process;
  processEnd_ = FileDescriptor(static_cast<int>(::syscall(SYS_pidfd_open, process, 0)));
  makeNonBlocking(inputEnd_);
  makeNonBlocking(errorEnd_);
  makeNonBlocking(outputEnd_);
  writeInput();
}

std::optional<ProgramOutcome> ChildProcess::poll(int timeoutMsecs) {
  if (process_ == 0)
    return outcome_;
  // Before Linux 5.3 there is no pidfd_open: poll ignores the -1, and the timeout does instead.
  std::array<pollfd, 4> watched = {
      pollfd{processEnd_.get(), POLLIN, 0}, pollfd{inputEnd_.get(), POLLOUT, 0},
      pollfd{errorEnd_.get(), POLLIN, 0}, pollfd{outputEnd_.get(), POLLIN, 0}};
  (void)::poll(watched.data(), watched.size(), timeoutMsecs);
  if (!outcome_)
    outcome_ = reap(); // before reading its output, so that the last of it is not missed
  writeInput();
  readErrors();
  readOutput();
  return outcome_;
}

bool ChildProcess::signalGroup(int number) const {
  return process_ > 0 && ::kill(-process_, number) == 0;
}

void ChildProcess::writeInput() {
  const BrokenPipeGuard guard;
  while (inputEnd_.isOpen() && !input_.empty()) {
    const ssize_t count = ::write(inputEnd_.get(), input_.data(), input_.size());
    if (count < 0 && errno == EAGAIN)
      return;
    if (count < 0 && errno != EINTR)
      input_ = {}; // a program need not read it
    if (count > 0)
      input_.remove_prefix(static_cast<std::size_t>(count));
  }
  inputEnd_.close();
}

void ChildProcess::readErrors() {
  readAvailable(errorEnd_, watch_.errors);
}

void ChildProcess::readOutput() {
  readAvailable(outputEnd_, watch_.output);
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
