#include "platform/linux/x11/clipboard/CopySource.h"

#include "platform/linux/processes/ProcessFacts.h"
#include "platform/linux/processes/StartTimes.h"
#include "platform/linux/x11/server/XcbReply.h"
#include "platform/linux/x11/windows/ClientProcess.h"

namespace tavrel {

CopySource::CopySource(SelectionConnection& connection, xcb_window_t window)
    : connection_(&connection), window_(window),
      process_(processOfClient(*connection.server(), window)), madeAt_(ticksSinceBoot()) {}

bool CopySource::madeItself(xcb_window_t owner) const {
  if (connection_->areOfOneClient(window_, owner))
    return true;
  return process_ != 0 && processOfClient(*connection_->server(), owner) == process_;
}

bool CopySource::made(xcb_window_t owner) const {
  if (madeItself(owner))
    return true;
  const std::int32_t process = processOfClient(*connection_->server(), owner);
  if (process == 0 || lastProgramStart() >= madeAt_)
    return false;
  const std::uint64_t started = startTimeOf(process);
  return started >= madeAt_ || started == 0;
}

bool CopySource::isThere() const {
  const auto attributes = xcbReply(xcb_get_window_attributes_reply(
      connection_->server(), xcb_get_window_attributes(connection_->server(), window_), nullptr));
  return attributes && processOfClient(*connection_->server(), window_) == process_;
}

} // namespace tavrel
