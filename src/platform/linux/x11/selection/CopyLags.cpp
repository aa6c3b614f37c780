#include "platform/linux/x11/selection/CopyLags.h"

#include "platform/linux/processes/ProcessFacts.h"

#include <algorithm>

namespace tavrel {

namespace {
using namespace std::chrono_literals;

constexpr auto unknownSettle = 100ms;
constexpr std::size_t mostProcesses = 256; // then all are learned anew
} // namespace

std::chrono::milliseconds CopyLags::settleTime(std::int32_t process,
                                               std::chrono::milliseconds least) const {
  const auto known = longest_.find({process, startTimeOf(process)});
  return std::max(least, known == longest_.end() ? unknownSettle : 2 * known->second);
}

void CopyLags::noteCopy(std::int32_t process, std::chrono::milliseconds lag) {
  if (longest_.size() >= mostProcesses)
    longest_.clear();
  std::chrono::milliseconds& longest = longest_[{process, startTimeOf(process)}];
  longest = std::max(longest, lag);
}

} // namespace tavrel
