#include "platform/linux/x11/clipboard/CopySource.h"

#include "platform/linux/processes/ProcessFacts.h"
#include "platform/linux/x11/windows/ClientProcess.h"

#include <ctime>
#include <unistd.h>

namespace tavrel {

namespace {
std::uint64_t ticksSinceStart() {
  timespec time{};
  ::clock_gettime(CLOCK_BOOTTIME, &time);
  const auto perSecond = static_cast<std::uint64_t>(::sysconf(_SC_CLK_TCK));
  return static_cast<std::uint64_t>(time.tv_sec) * perSecond +
         static_cast<std::uint64_t>(time.tv_nsec) * perSecond / 1'000'000'000;
}
} // namespace

CopySource::CopySource(SelectionConnection& connection, xcb_window_t window)
    : connection_(&connection), window_(window),
      process_(processOfClient(*connection.server(), window)), madeAt_(ticksSinceStart()) {}

bool CopySource::made(xcb_window_t owner) const {
  if (connection_->areOfOneClient(window_, owner))
    return true;
  const std::int32_t process = processOfClient(*connection_->server(), owner);
  if (process == 0)
    return false;
  const std::uint64_t started = startTimeOf(process);
  return process == process_ || started >= madeAt_ || started == 0;
}

} // namespace tavrel
