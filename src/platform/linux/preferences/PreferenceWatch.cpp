#include "platform/linux/preferences/PreferenceWatch.h"

#include <QStringList>

#include <chrono>
#include <filesystem>
#include <sys/stat.h>

namespace tavrel {

namespace {

namespace fs = std::filesystem;

constexpr std::chrono::milliseconds quietTime{200}; ///< the writes of one save are closer together
constexpr std::chrono::milliseconds longestWait{2000}; ///< with a program that never stops writing

// Only what exists can be watched: when the folder is missing, the one in which it will be made.
fs::path nearestExistingFolder(fs::path path) {
  std::error_code ignored;
  while (path.has_relative_path() && !fs::is_directory(path, ignored))
    path = path.parent_path();
  return path;
}

void addFile(QStringList& paths, const fs::path& file) {
  std::error_code ignored;
  if (fs::exists(file, ignored))
    paths.append(QString::fromStdString(file.string()));
  paths.append(QString::fromStdString(nearestExistingFolder(file.parent_path()).string()));
}

} // namespace

PreferenceWatch::PreferenceWatch(std::string path, std::function<void()> changed)
    : path_(std::move(path)), changed_(std::move(changed)), reportedStamp_(stamp()) {
  quietTimer_.setSingleShot(true);
  quietTimer_.setInterval(quietTime);
  longestWaitTimer_.setSingleShot(true);
  longestWaitTimer_.setInterval(longestWait);
  connect(&watcher_, &QFileSystemWatcher::fileChanged, this, &PreferenceWatch::onChange);
  connect(&watcher_, &QFileSystemWatcher::directoryChanged, this, &PreferenceWatch::onChange);
  connect(&quietTimer_, &QTimer::timeout, this, &PreferenceWatch::report);
  connect(&longestWaitTimer_, &QTimer::timeout, this, &PreferenceWatch::report);
  updateWatchedPaths();
}

// Again after each change: a file that was replaced is another inode, which is not watched yet.
void PreferenceWatch::updateWatchedPaths() {
  QStringList paths;
  addFile(paths, path_);
  std::error_code ignored;
  const fs::path target = fs::weakly_canonical(path_, ignored);
  if (!target.empty() && target != path_)
    addFile(paths, target);
  paths.removeDuplicates();
  for (const QString& watched : watcher_.files() + watcher_.directories())
    if (paths.removeAll(watched) == 0)
      watcher_.removePath(watched);
  if (!paths.isEmpty())
    watcher_.addPaths(paths);
}

// Changes of other files in the folder leave the stamp as it is.
void PreferenceWatch::onChange() {
  updateWatchedPaths();
  if (stamp() == reportedStamp_)
    return;
  quietTimer_.start();
  if (!longestWaitTimer_.isActive())
    longestWaitTimer_.start();
}

void PreferenceWatch::report() {
  quietTimer_.stop();
  longestWaitTimer_.stop();
  reportedStamp_ = stamp();
  changed_();
}

std::string PreferenceWatch::stamp() const {
  struct stat status = {};
  if (::stat(path_.c_str(), &status) != 0)
    return {};
  std::string stamp = std::to_string(status.st_dev);
  for (const auto number :
       {static_cast<long long>(status.st_ino), static_cast<long long>(status.st_size),
        static_cast<long long>(status.st_mtim.tv_sec),
        static_cast<long long>(status.st_mtim.tv_nsec)})
    stamp.append(" ").append(std::to_string(number));
  return stamp;
}

} // namespace tavrel
