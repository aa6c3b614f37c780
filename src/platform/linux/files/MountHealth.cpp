#include "platform/linux/files/MountHealth.h"

#include <QLoggingCategory>

#include <chrono>
#include <condition_variable>
#include <map>
#include <mutex>
#include <sys/statvfs.h>
#include <system_error>
#include <thread>

namespace tavrel {

namespace {

Q_LOGGING_CATEGORY(mountsLog, "tavrel.files")

using Moment = std::chrono::steady_clock::time_point;
constexpr std::chrono::seconds longestAnswer{1};
constexpr std::chrono::seconds healthKept{5};

thread_local bool answersQuestions = false;

/// Shared with the thread that asks, which may wait for ever.
struct Asked {
  std::mutex mutex;
  std::condition_variable answered;
  bool done = false;
};

std::shared_ptr<Asked> ask(std::function<void()> question) {
  auto asked = std::make_shared<Asked>();
  const auto run = [asked, question = std::move(question)] {
    answersQuestions = true;
    question();
    const std::lock_guard lock(asked->mutex);
    asked->done = true;
    asked->answered.notify_all();
  };
  try {
    std::thread(run).detach();
  } catch (const std::system_error&) { // no thread to be had: asked as nobody would mind
    run();
    answersQuestions = false;
  }
  return asked;
}

bool isDone(Asked& asked, std::chrono::seconds timeout) {
  std::unique_lock lock(asked.mutex);
  return asked.answered.wait_for(lock, timeout, [&] { return asked.done; });
}

/// What is known of the distant file systems, by mount point.
class MountHealth {
public:
  bool isAnsweredInTime(const std::string& point, std::function<void()> question) {
    if (isStuck(point))
      return false;
    const auto asked = ask(std::move(question));
    const bool answered = isDone(*asked, longestAnswer);
    answered ? noteWell(point) : noteStuck(point, asked);
    return answered;
  }

  bool wasWellLately(const std::string& point) {
    const std::lock_guard lock(mutex_);
    const auto well = well_.find(point);
    return well != well_.end() && std::chrono::steady_clock::now() - well->second < healthKept;
  }

private:
  bool isStuck(const std::string& point) {
    const std::lock_guard lock(mutex_);
    const auto stuck = stuck_.find(point);
    if (stuck == stuck_.end())
      return false;
    if (!isDone(*stuck->second, std::chrono::seconds(0)))
      return true;
    stuck_.erase(stuck);
    return false;
  }

  void noteWell(const std::string& point) {
    const std::lock_guard lock(mutex_);
    well_[point] = std::chrono::steady_clock::now();
  }

  void noteStuck(const std::string& point, const std::shared_ptr<Asked>& asked) {
    const std::lock_guard lock(mutex_);
    well_.erase(point);
    if (stuck_.emplace(point, asked).second)
      qCWarning(mountsLog, "%s does not answer; what is on it counts as missing", point.c_str());
  }

  std::mutex mutex_;
  std::map<std::string, Moment> well_;                  ///< when it answered last
  std::map<std::string, std::shared_ptr<Asked>> stuck_; ///< the question that it owes the answer to
};

MountHealth& mountHealth() {
  static MountHealth& health = *new MountHealth; // threads may ask until the very end
  return health;
}

} // namespace

bool mayWaitForEver() {
  return answersQuestions;
}

bool isAnsweredInTime(const std::string& mountPoint, std::function<void()> question) {
  return mountHealth().isAnsweredInTime(mountPoint, std::move(question));
}

std::optional<std::string> doubtfulMountOf(const std::string& path, FinalLink link) {
  return mayWaitForEver() ? std::nullopt : distantMountOf(path, link);
}

bool fileSystemAnswers(const std::string& path) {
  const auto point = doubtfulMountOf(path, FinalLink::follow);
  if (!point || mountHealth().wasWellLately(*point))
    return true;
  return isAnsweredInTime(*point, [point = *point] {
    struct statvfs status = {};
    (void)::statvfs(point.c_str(), &status); // any answer will do
  });
}

} // namespace tavrel
