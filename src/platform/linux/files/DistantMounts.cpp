#include "platform/linux/files/DistantMounts.h"

#include "platform/linux/files/MountPoints.h"
#include "platform/linux/system/FileDescriptor.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <climits>
#include <deque>
#include <fcntl.h>
#include <memory>
#include <mutex>
#include <poll.h>
#include <unistd.h>

namespace tavrel {

namespace {

using namespace std::chrono_literals;
using Points = std::set<std::string>;
constexpr int mostLinks = 40; // as the kernel has it

/// The distant mount points, read again when the kernel says that anything was mounted. It is asked
/// a thousand times a second at most: a file's kind costs little more than such a question.
class MountTable {
public:
  std::shared_ptr<const Points> points() {
    const std::lock_guard lock(mutex_);
    const auto now = std::chrono::steady_clock::now();
    if (points_ && now < fresh_)
      return points_;
    fresh_ = now + 1ms;
    pollfd changes{table_.get(), POLLPRI, 0};
    if (!points_ || !table_.isOpen() || ::poll(&changes, 1, 0) != 0)
      points_ = std::make_shared<const Points>(distantMountPoints());
    return points_;
  }

private:
  std::mutex mutex_;
  FileDescriptor table_{::open("/proc/self/mountinfo", O_RDONLY | O_CLOEXEC)};
  std::shared_ptr<const Points> points_;
  std::chrono::steady_clock::time_point fresh_;
};

std::shared_ptr<const Points> distantPointsNow() {
  static MountTable& table = *new MountTable; // threads may ask until the very end
  return table.points();
}

/// Of the thing at the path itself; nothing when it is no symbolic link.
std::optional<std::string> textOfLink(const std::string& path) {
  std::array<char, PATH_MAX> text{};
  const ssize_t length = ::readlink(path.c_str(), text.data(), text.size());
  return length < 0 ? std::nullopt
                    : std::optional(std::string(text.data(), static_cast<std::size_t>(length)));
}

/// Walks a path as the kernel does, one component at a time.
class Walk {
public:
  Walk(std::string_view path, const Points& points) : points_(points) { putAhead(path); }

  /// The distant mount point that the walk comes to.
  std::optional<std::string> run(FinalLink link) {
    while (!ahead_.empty()) {
      step();
      if (points_.contains(walked_))
        return innermostAhead();
      const bool follow = link == FinalLink::follow || !ahead_.empty();
      const auto target = follow ? textOfLink(walked_) : std::nullopt;
      if (target && !turn(*target))
        break;
    }
    return std::nullopt;
  }

private:
  void putAhead(std::string_view path) {
    while (!path.empty()) {
      const std::size_t slash = path.rfind('/');
      const std::string_view last = slash == std::string_view::npos ? path : path.substr(slash + 1);
      if (!last.empty() && last != ".")
        ahead_.emplace_front(last);
      path.remove_suffix(slash == std::string_view::npos ? path.size() : path.size() - slash);
    }
  }

  void goUp() { walked_.erase(std::min(walked_.rfind('/'), walked_.size())); }

  void step() {
    const std::string next = std::move(ahead_.front());
    ahead_.pop_front();
    if (next == "..")
      goUp();
    else
      walked_.append("/").append(next);
  }

  bool turn(const std::string& target) {
    target.starts_with('/') ? walked_.clear() : goUp();
    putAhead(target);
    return ++links_ <= mostLinks;
  }

  /// One may be mounted on another, and be well where the other is not.
  std::string innermostAhead() {
    std::string point = walked_;
    while (!ahead_.empty()) {
      step();
      if (points_.contains(walked_))
        point = walked_;
    }
    return point;
  }

  const Points& points_;
  std::string walked_; ///< free of links; empty for the root
  std::deque<std::string> ahead_;
  int links_ = 0;
};

} // namespace

std::optional<std::string> distantMountOf(const std::string& path, FinalLink link) {
  const auto points = distantPointsNow();
  if (points->empty() || !path.starts_with('/') || path.find('\0') != std::string::npos)
    return std::nullopt;
  const bool followsAnyway = path.ends_with('/') || path.ends_with("/."); // as the kernel does
  return Walk(path, *points).run(followsAnyway ? FinalLink::follow : link);
}

} // namespace tavrel
