#pragma once

#include <map>
#include <string>
#include <system_error>
#include <vector>

namespace tavrel {

/// Our environment for a program we start: without what is meant for us alone, with `added`.
[[nodiscard]] std::vector<std::string>
childEnvironment(const std::map<std::string, std::string>& added);

/// The texts as execve takes them, with a null pointer at the end; valid as long as the texts.
[[nodiscard]] std::vector<char*> pointersTo(std::vector<std::string>& texts);

// Between fork and exec: none of these allocates.

/// Every signal as at log-in: default action, not blocked.
void resetSignals();

/// No file but the standard three stays open in the program to come.
void closeOthersOnExec();

/// Ends the child and tells the parent, through a pipe, why the program cannot run.
[[noreturn]] void giveUpChild(int report);

/// In the parent: waits until the program runs (the pipe closes by itself) or its failure is told.
[[nodiscard]] std::error_code readChildReport(int report);

} // namespace tavrel
