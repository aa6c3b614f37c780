#pragma once

#include <map>
#include <string>
#include <sys/types.h>
#include <system_error>
#include <vector>

namespace tavrel {

/// A program to start.
struct ProcessRequest {
  std::string program;                ///< absolute path
  std::vector<std::string> arguments; ///< the program's name first
  std::string folder;                 ///< to start in; empty: the user's home, or the root
  std::map<std::string, std::string> environment; ///< added to ours
};

/// Starts a program that is nobody's child: a session of its own, standard input empty, standard
/// output and error ours, no other file open, signals as at log-in, and our environment without
/// what is meant for us alone. No error once the program runs; the system's reason when it cannot
/// (a script without an interpreter line is never handed to a shell).
[[nodiscard]] std::error_code startDetachedProcess(const ProcessRequest& request);

// The steps of such a start, also for a program that stays our child (ChildProcess).

/// Our environment for a program that we start: without what is meant for us alone, with `added`.
[[nodiscard]] std::vector<std::string>
childEnvironment(const std::map<std::string, std::string>& added);

/// The texts as execve takes them, with a null pointer at the end; valid as long as the texts.
[[nodiscard]] std::vector<char*> nullTerminatedPointers(std::vector<std::string>& texts);

// Between fork and exec. None of these allocates: another thread may have held the allocator's lock
// when the process was forked, and nobody would release it in the child.

/// Every signal as at log-in: default action, not blocked.
void resetSignalHandlers();

/// No file but the standard three stays open in the program that exec starts.
void closeOtherFilesOnExec();

/// Ends the child and sends errno, the reason why the program cannot run, to the parent's pipe.
[[noreturn]] void reportErrnoAndExit(int pipe);

/// In the parent: waits until the program runs (exec closes the pipe) or that errno arrives.
[[nodiscard]] std::error_code readReportedError(int pipe);

/// Waits until a child has ended, so that no zombie stays.
void reapChild(pid_t child);

} // namespace tavrel
