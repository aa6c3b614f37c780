#include "platform/linux/MountHealth.h"

#include "platform/linux/MountPoints.h"

#include <QLoggingCategory>

#include <chrono>
#include <condition_variable>
#include <map>
#include <memory>
#include <mutex>
#include <string_view>
#include <sys/statvfs.h>
#include <system_error>
#include <thread>

namespace tavrel {

namespace {

Q_LOGGING_CATEGORY(mountsLog, "tavrel.files")

using Moment = std::chrono::steady_clock::time_point;
constexpr std::chrono::seconds longestProbe{1};
constexpr std::chrono::seconds tableKept{1};
constexpr std::chrono::seconds healthKept{5};

/// Shared with the thread that asks, which may wait for ever.
struct Probe {
  std::mutex mutex;
  std::condition_variable answered;
  bool done = false;
  Moment started;
};

std::shared_ptr<Probe> startProbe(const std::string& point, Moment now) {
  auto probe = std::make_shared<Probe>();
  probe->started = now;
  const auto ask = [point, probe] {
    struct statvfs status {};
    (void)::statvfs(point.c_str(), &status); // any answer will do
    const std::lock_guard lock(probe->mutex);
    probe->done = true;
    probe->answered.notify_all();
  };
  try {
    std::thread(ask).detach();
  } catch (const std::system_error&) { // no thread to be had: asked as nobody would mind
    probe->done = true;
  }
  return probe;
}

bool isDone(Probe& probe, std::chrono::seconds patience) {
  std::unique_lock lock(probe.mutex);
  return probe.answered.wait_for(lock, patience, [&] { return probe.done; });
}

bool liesOn(std::string_view path, std::string_view point) {
  return path.starts_with(point) &&
         (path.size() == point.size() || path[point.size()] == '/' || point == "/");
}

class MountHealth {
public:
  bool answers(const std::string& path) {
    const std::lock_guard lock(mutex_);
    const Moment now = std::chrono::steady_clock::now();
    if (now - read_ > tableKept) {
      points_ = distantMountPoints();
      read_ = now;
    }
    for (const std::string& point : points_)
      if (liesOn(path, point) && !isWell(point, now))
        return false;
    return true;
  }

private:
  bool isWell(const std::string& point, Moment now) {
    auto& probe = probes_[point];
    if (probe && !isDone(*probe, std::chrono::seconds(0)))
      return false;
    if (probe && now - probe->started < healthKept)
      return true;
    probe = startProbe(point, now);
    if (isDone(*probe, longestProbe))
      return true;
    qCWarning(mountsLog, "%s does not answer; what is on it counts as missing", point.c_str());
    return false;
  }

  std::mutex mutex_;
  std::vector<std::string> points_;
  Moment read_;
  std::map<std::string, std::shared_ptr<Probe>> probes_; ///< the latest of each mount point
};

} // namespace

bool fileSystemAnswers(const std::string& path) {
  static MountHealth& health = *new MountHealth; // threads may ask until the very end
  return health.answers(path);
}

} // namespace tavrel
