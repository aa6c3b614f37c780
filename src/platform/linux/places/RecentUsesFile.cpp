#include "platform/linux/places/RecentUsesFile.h"

#include "platform/linux/files/FileWithTimeout.h"
#include "platform/linux/files/ItemKind.h"
#include "platform/linux/files/MountHealth.h"

#include <QLoggingCategory>

#include <sys/stat.h>

namespace tavrel {

namespace {

Q_LOGGING_CATEGORY(recentLog, "tavrel.recent")
constexpr std::size_t largestBookmarks = std::size_t{16} << 20;
constexpr std::int64_t nanosecondsPerSecond = 1'000'000'000;

std::int64_t inNanoseconds(const timespec& time) {
  return time.tv_sec * nanosecondsPerSecond + time.tv_nsec;
}

std::int64_t nowInNanoseconds() {
  timespec now{};
  ::clock_gettime(CLOCK_REALTIME, &now);
  return inNanoseconds(now);
}

std::optional<struct stat> statusNow(const std::string& path) {
  using Status = std::optional<struct stat>;
  return askWithTimeout(path, FinalLink::follow, Status(), [path] {
    struct stat status = {};
    return ::stat(path.c_str(), &status) == 0 ? Status(status) : std::nullopt;
  });
}

} // namespace

std::vector<RecentUse> readRecentUses(const std::string& path) {
  if (!fileStatus(path, FinalLink::follow))
    return {};
  const auto text = readFileWithTimeout(path, largestBookmarks);
  RecentUses found =
      text ? parseRecentUses(*text) : RecentUses{{}, "cannot be read or is too large"};
  if (!found.problem.empty())
    qCWarning(recentLog, "%s: %s", path.c_str(), found.problem.c_str());
  return std::move(found.uses);
}

const std::vector<RecentUse>& CachedRecentUses::read(const std::string& path) {
  const auto version = stableVersion(path); // before reading, so that a change meanwhile shows
  if (version && version == version_ && path == path_)
    return uses_;
  uses_ = readRecentUses(path);
  path_ = path;
  version_ = version;
  return uses_;
}

/// Nothing for a file that changed within the last 0.1 s: the time stamps of file systems are
/// coarse, so that another change could leave them as they are.
std::optional<CachedRecentUses::Version> CachedRecentUses::stableVersion(const std::string& path) {
  const auto status = statusNow(path);
  if (!status)
    return std::nullopt;
  const std::int64_t changed = inNanoseconds(status->st_ctim);
  if (nowInNanoseconds() - changed < nanosecondsPerSecond / 10)
    return std::nullopt;
  return Version{static_cast<std::int64_t>(status->st_dev),
                 static_cast<std::int64_t>(status->st_ino), status->st_size,
                 inNanoseconds(status->st_mtim), changed};
}

} // namespace tavrel
