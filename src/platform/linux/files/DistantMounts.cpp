#include "platform/linux/files/DistantMounts.h"

#include "platform/linux/files/MountTable.h"

#include <algorithm>
#include <array>
#include <climits>
#include <deque>
#include <fcntl.h>
#include <linux/openat2.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace tavrel {

namespace {

using Points = std::set<std::string>;
constexpr int mostLinks = 40; // as the kernel has it

enum class Links { mayBeThere, none };

/// Answered by what the kernel remembers alone: it asks no file system, and does not wait.
Links linksOnTheWay(const std::string& path, FinalLink link) {
  open_how how{};
  how.flags = O_PATH | O_CLOEXEC | (link == FinalLink::keep ? O_NOFOLLOW : 0);
  how.resolve = RESOLVE_NO_SYMLINKS | RESOLVE_CACHED;
  const long file = ::syscall(SYS_openat2, AT_FDCWD, path.c_str(), &how, sizeof how);
  if (file < 0)
    return Links::mayBeThere;
  ::close(static_cast<int>(file));
  return Links::none;
}

/// Of the thing at the path itself; nothing when it is no symbolic link.
std::optional<std::string> textOfLink(const std::string& path) {
  std::array<char, PATH_MAX> text{};
  const ssize_t length = ::readlink(path.c_str(), text.data(), text.size());
  return length < 0 ? std::nullopt
                    : std::optional(std::string(text.data(), static_cast<std::size_t>(length)));
}

bool leadsThrough(std::string_view path, std::string_view point) {
  return path.starts_with(point) && (path.size() == point.size() || path[point.size()] == '/');
}

/// Walks a path as the kernel does, one component at a time.
class Walk {
public:
  Walk(std::string_view path, Links links, const DistantPointsNow& pointsNow)
      : links_(links), pointsNow_(pointsNow), points_(pointsNow()) {
    putAhead(path);
  }

  /// The distant mount point that the walk comes to.
  std::optional<std::string> run(FinalLink link) {
    while (!ahead_.empty()) {
      step();
      if (auto point = pointHere(); !point.empty())
        return innermostAhead(std::move(point));
      const bool follow = link == FinalLink::follow || !ahead_.empty();
      if (follow && links_ == Links::mayBeThere && !followLink())
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

  /// False when there are too many.
  bool followLink() {
    const auto target = textOfLink(walked_);
    if (!target)
      return true;
    target->starts_with('/') ? walked_.clear() : goUp();
    putAhead(*target);
    return ++turns_ <= mostLinks;
  }

  /// The innermost on the way so far, which something may have been mounted on meanwhile; empty for
  /// none. Where no link is to be read nothing is touched, and it is not asked again.
  std::string pointHere() {
    if (links_ == Links::mayBeThere)
      points_ = pointsNow_();
    std::string innermost; // in the order of names the longer one comes last
    for (const std::string& point : *points_)
      if (leadsThrough(walked_, point))
        innermost = point;
    return innermost;
  }

  /// One may be mounted on another, and be well where the other is not.
  std::string innermostAhead(std::string point) {
    while (!ahead_.empty()) {
      step();
      if (points_->contains(walked_))
        point = walked_;
    }
    return point;
  }

  const Links links_;
  const DistantPointsNow& pointsNow_;
  std::shared_ptr<const Points> points_;
  std::string walked_; ///< free of links; empty for the root
  std::deque<std::string> ahead_;
  int turns_ = 0;
};

} // namespace

std::optional<std::string> distantMountOf(const std::string& path, FinalLink link,
                                          const DistantPointsNow& pointsNow) {
  if (pointsNow()->empty() || !path.starts_with('/') || path.find('\0') != std::string::npos)
    return std::nullopt;
  const bool followsAnyway = path.ends_with('/') || path.ends_with("/."); // as the kernel does
  const FinalLink end = followsAnyway ? FinalLink::follow : link;
  return Walk(path, linksOnTheWay(path, end), pointsNow).run(end);
}

std::optional<std::string> distantMountOf(const std::string& path, FinalLink link) {
  return distantMountOf(path, link, distantPointsNow);
}

} // namespace tavrel
