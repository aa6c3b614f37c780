#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <vector>

namespace tavrel {

/// What a service is started with.
struct ServiceCall {
  std::string program;            ///< absolute path
  std::string input;              ///< its standard input
  std::vector<std::string> files; ///< its arguments
  std::string hostApplication;    ///< the variable TAVREL_HOST_APP
};

/// What a service printed, or why that does not count.
struct ServiceResult {
  std::optional<std::string> output; ///< nothing when it failed
  std::string trouble;               ///< a clause for the person, when it failed
};

/// Runs a service to its end, for as long as the patience lasts; each line of its standard error
/// goes to ours.
[[nodiscard]] ServiceResult runService(const ServiceCall& call, std::chrono::milliseconds patience);

} // namespace tavrel
