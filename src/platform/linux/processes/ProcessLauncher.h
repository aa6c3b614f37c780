#pragma once

#include <map>
#include <string>
#include <system_error>
#include <vector>

namespace tavrel {

/// A program to start.
struct ProcessRequest {
  std::string program;                ///< absolute path
  std::vector<std::string> arguments; ///< the program's name first
  std::string folder;                 ///< to start in; empty: the person's home, or the root
  std::map<std::string, std::string> environment; ///< added to ours
};

/// Starts a program that is nobody's child: a session of its own, standard input empty, standard
/// output and error ours, no other file open, signals as at log-in, and our environment without
/// what is meant for us alone. No error once the program runs; the system's reason when it cannot
/// (a script without an interpreter line is never handed to a shell).
[[nodiscard]] std::error_code startProcess(const ProcessRequest& request);

} // namespace tavrel
