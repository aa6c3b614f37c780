#include "platform/linux/files/MountTable.h"

#include "platform/linux/files/MountPoints.h"
#include "platform/linux/system/FileDescriptor.h"

#include <fcntl.h>
#include <mutex>
#include <poll.h>

namespace tavrel {

namespace {

using Points = std::set<std::string>;

/// Read again when the kernel says that anything was mounted. It is asked each time: a mount that
/// came since the last question may be the one that never answers.
class MountTable {
public:
  std::shared_ptr<const Points> points() {
    const std::lock_guard lock(mutex_);
    pollfd changes{table_.get(), POLLPRI, 0};
    if (!points_ || !table_.isOpen() || ::poll(&changes, 1, 0) != 0)
      points_ = std::make_shared<const Points>(distantMountPoints());
    return points_;
  }

private:
  std::mutex mutex_;
  FileDescriptor table_{::open("/proc/self/mountinfo", O_RDONLY | O_CLOEXEC)};
  std::shared_ptr<const Points> points_;
};

} // namespace

std::shared_ptr<const Points> distantPointsNow() {
  static MountTable& table = *new MountTable; // threads may ask until the very end
  return table.points();
}

} // namespace tavrel
