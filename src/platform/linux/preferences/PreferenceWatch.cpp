#include "platform/linux/preferences/PreferenceWatch.h"

#include <QStringList>

#include <chrono>
#include <filesystem>
#include <sys/stat.h>

namespace tavrel {

namespace {

namespace fs = std::filesystem;

constexpr std::chrono::milliseconds quietTime{200};    ///< an editor's writes come closer together
constexpr std::chrono::milliseconds longestWait{2000}; ///< for one that never stops writing

// The folder itself may have to be made first.
fs::path nearestFolder(fs::path path) {
  std::error_code ignored;
  while (path.has_relative_path() && !fs::is_directory(path, ignored))
    path = path.parent_path();
  return path;
}

void addFile(QStringList& places, const fs::path& file) {
  std::error_code ignored;
  if (fs::exists(file, ignored))
    places.append(QString::fromStdString(file.string()));
  places.append(QString::fromStdString(nearestFolder(file.parent_path()).string()));
}

} // namespace

PreferenceWatch::PreferenceWatch(std::string path, std::function<void()> changed)
    : path_(std::move(path)), changed_(std::move(changed)), seen_(stamp()) {
  quiet_.setSingleShot(true);
  quiet_.setInterval(quietTime);
  patience_.setSingleShot(true);
  patience_.setInterval(longestWait);
  connect(&watcher_, &QFileSystemWatcher::fileChanged, this, &PreferenceWatch::notice);
  connect(&watcher_, &QFileSystemWatcher::directoryChanged, this, &PreferenceWatch::notice);
  connect(&quiet_, &QTimer::timeout, this, &PreferenceWatch::tell);
  connect(&patience_, &QTimer::timeout, this, &PreferenceWatch::tell);
  watchPlaces();
}

// A replaced file is another one, which is not watched yet.
void PreferenceWatch::watchPlaces() {
  QStringList places;
  addFile(places, path_);
  std::error_code ignored;
  const fs::path target = fs::weakly_canonical(path_, ignored);
  if (!target.empty() && target != path_)
    addFile(places, target);
  places.removeDuplicates();
  for (const QString& watched : watcher_.files() + watcher_.directories())
    if (places.removeAll(watched) == 0)
      watcher_.removePath(watched);
  if (!places.isEmpty())
    watcher_.addPaths(places);
}

// The folder is full of other programs' files.
void PreferenceWatch::notice() {
  watchPlaces();
  if (stamp() == seen_)
    return;
  quiet_.start();
  if (!patience_.isActive())
    patience_.start();
}

void PreferenceWatch::tell() {
  quiet_.stop();
  patience_.stop();
  seen_ = stamp();
  changed_();
}

std::string PreferenceWatch::stamp() const {
  struct stat status {};
  if (::stat(path_.c_str(), &status) != 0)
    return {};
  std::string stamp = std::to_string(status.st_dev);
  for (const auto part :
       {static_cast<long long>(status.st_ino), static_cast<long long>(status.st_size),
        static_cast<long long>(status.st_mtim.tv_sec),
        static_cast<long long>(status.st_mtim.tv_nsec)})
    stamp.append(" ").append(std::to_string(part));
  return stamp;
}

} // namespace tavrel
