#pragma once

#include "platform/linux/processes/SelectionProgram.h"

#include <chrono>
#include <optional>
#include <string>
#include <vector>

namespace tavrel {

/// What a service printed, or why that does not count.
struct ServiceResult {
  std::optional<std::string> output; ///< nothing when it failed
  std::string trouble;               ///< a clause for the person, when it failed
};

/// Runs a service to its end, ended when the timeout is over; each line of its standard error
/// goes to ours.
[[nodiscard]] ServiceResult runService(const SelectionProgram& service,
                                       std::chrono::milliseconds timeout);

} // namespace tavrel
