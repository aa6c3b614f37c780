#include "platform/linux/files/FileBookmark.h"

#include "base/PathString.h"
#include "platform/linux/files/MountHealth.h"

#include <algorithm>
#include <charconv>
#include <deque>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <set>
#include <string_view>
#include <sys/stat.h>
#include <sys/sysmacros.h>

namespace tavrel {

namespace {
constexpr std::string_view heading = "tavrel bookmark 1\n";
constexpr int mostLevels = 3;
constexpr int mostNames = 20'000;
constexpr std::int64_t nanosecondsPerSecond = 1'000'000'000;

template <class Number> bool parseNumber(std::string_view& text, char end, Number& number) {
  const auto [next, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || next == text.data() + text.size() || *next != end)
    return false;
  text.remove_prefix(static_cast<std::size_t>(next - text.data()) + 1);
  return true;
}

struct SearchedName {
  std::string name;
  std::uint64_t inode;
  bool isFolder;
};

std::vector<SearchedName> searchedNames(const std::string& folder, int most) {
  std::vector<SearchedName> names;
  const std::unique_ptr<DIR, int (*)(DIR*)> stream(::opendir(folder.c_str()), ::closedir);
  while (static_cast<int>(names.size()) < most) {
    const dirent* entry = stream ? ::readdir(stream.get()) : nullptr;
    if (!entry)
      break;
    names.push_back({entry->d_name, entry->d_ino, entry->d_type == DT_DIR});
  }
  return names;
}

/// Searches folders breadth first, so that the nearest places come first.
class BreadthFirstSearch {
public:
  explicit BreadthFirstSearch(const BookmarkedIdentity& wanted) : wanted_(wanted) {}

  void add(const std::string& folder) {
    if (const auto identity = fileIdentity(folder))
      add({folder, identity->device, 0}, *identity);
  }

  std::optional<std::string> run() {
    while (!pending_.empty() && searchedNames_ < mostNames) {
      const PendingFolder place = std::move(pending_.front());
      pending_.pop_front();
      if (auto found = searchFolder(place))
        return found;
    }
    return std::nullopt;
  }

private:
  struct PendingFolder {
    std::string folder;
    std::uint64_t device;
    int level;
  };

  void add(PendingFolder place, const BookmarkedIdentity& identity) {
    if (seen_.insert({identity.device, identity.inode}).second)
      pending_.push_back(std::move(place));
  }

  /// A file that was renamed is still on its file system. Others may be slow or remote: they are
  /// not searched.
  void descend(const PendingFolder& place, const std::string& path) {
    const auto identity = place.level + 1 < mostLevels ? fileIdentity(path) : std::nullopt;
    if (identity && identity->device == place.device)
      add({path, place.device, place.level + 1}, *identity);
  }

  std::optional<std::string> searchFolder(const PendingFolder& place) {
    const int most = mostNames - searchedNames_;
    const auto names =
        askWithTimeout(place.folder, FinalLink::follow, std::vector<SearchedName>(),
                       [folder = place.folder, most] { return searchedNames(folder, most); });
    searchedNames_ += std::max(static_cast<int>(names.size()), 1);
    for (const SearchedName& name : names) {
      std::string path = appendingPathComponent(place.folder, name.name);
      if (isWanted(name, path))
        return path;
      if (name.isFolder && name.name[0] != '.')
        descend(place, path);
    }
    return std::nullopt;
  }

  /// The inode number in the listing nearly always rules a name out, without a stat of the file.
  bool isWanted(const SearchedName& name, const std::string& path) const {
    if (name.inode != wanted_.inode)
      return false;
    const auto identity = fileIdentity(path);
    return identity && sameFile(*identity, wanted_);
  }

  BookmarkedIdentity wanted_;
  std::deque<PendingFolder> pending_;
  std::set<std::pair<std::uint64_t, std::uint64_t>> seen_;
  int searchedNames_ = 0;
};

std::optional<BookmarkedIdentity> identityNow(const std::string& path) {
  struct statx status = {};
  constexpr unsigned int wanted = STATX_INO | STATX_BTIME;
  if (::statx(AT_FDCWD, path.c_str(), AT_SYMLINK_NOFOLLOW, wanted, &status) != 0)
    return std::nullopt;
  const bool born = (status.stx_mask & STATX_BTIME) != 0;
  return BookmarkedIdentity{
      makedev(status.stx_dev_major, status.stx_dev_minor), status.stx_ino,
      born ? status.stx_btime.tv_sec * nanosecondsPerSecond + status.stx_btime.tv_nsec : 0};
}

std::string nearestFolder(std::string folder) {
  while (folder.size() > 1 && !fileIdentity(folder))
    folder = deletingLastPathComponent(folder);
  return folder;
}

} // namespace

bool sameFile(const BookmarkedIdentity& a, const BookmarkedIdentity& b) {
  if (a.inode != b.inode || a.birth != b.birth)
    return false;
  return a.birth != 0 || a.device == b.device;
}

std::optional<BookmarkedIdentity> fileIdentity(const std::string& path) {
  if (path.find('\0') != std::string::npos)
    return std::nullopt;
  return askWithTimeout(path, FinalLink::keep, std::optional<BookmarkedIdentity>(),
                        [path] { return identityNow(path); });
}

Bytes bookmarkData(const FileBookmark& bookmark) {
  const std::string text = std::string(heading) + std::to_string(bookmark.identity.device) + ' ' +
                           std::to_string(bookmark.identity.inode) + ' ' +
                           std::to_string(bookmark.identity.birth) + '\n' + bookmark.path;
  return {text.begin(), text.end()};
}

std::optional<FileBookmark> bookmarkFromData(const Bytes& data) {
  std::string_view text(reinterpret_cast<const char*>(data.data()), data.size());
  if (!text.starts_with(heading))
    return std::nullopt;
  text.remove_prefix(heading.size());
  FileBookmark bookmark;
  BookmarkedIdentity& identity = bookmark.identity;
  if (!parseNumber(text, ' ', identity.device) || !parseNumber(text, ' ', identity.inode) ||
      !parseNumber(text, '\n', identity.birth) || !text.starts_with('/'))
    return std::nullopt;
  bookmark.path = text;
  return bookmark;
}

std::optional<std::string> findBookmarked(const FileBookmark& bookmark,
                                          const std::vector<std::string>& folders) {
  const auto there = fileIdentity(bookmark.path);
  if (there && sameFile(*there, bookmark.identity))
    return bookmark.path;
  if (bookmark.identity.inode == 0)
    return there ? std::optional(bookmark.path) : std::nullopt;
  const std::string folder = nearestFolder(deletingLastPathComponent(bookmark.path));
  BreadthFirstSearch search(bookmark.identity);
  search.add(folder);
  search.add(deletingLastPathComponent(folder));
  for (const std::string& other : folders)
    search.add(other);
  if (auto found = search.run())
    return found;
  return there ? std::optional(bookmark.path) : std::nullopt;
}

} // namespace tavrel
