#pragma once

#include <QFileSystemWatcher>
#include <QObject>
#include <QTimer>

#include <functional>
#include <string>

namespace tavrel {

/// Watches one file, and the one it leads to as a symbolic link, however it is saved: written in
/// place, replaced by rename, created or removed. Calls back from the event loop when nothing has
/// changed for 200 ms, or after 2 s of changes without such a pause.
class PreferenceWatch final : public QObject {
public:
  /// Neither the file nor its folder need exist.
  PreferenceWatch(std::string path, std::function<void()> changed);

private:
  void updateWatchedPaths();
  void onChange();
  void report();
  /// Device, inode, size and time; empty without a file.
  [[nodiscard]] std::string stamp() const;

  std::string path_;
  std::function<void()> changed_;
  std::string reportedStamp_; ///< of the file when a change was reported last
  QFileSystemWatcher watcher_;
  QTimer quietTimer_;
  QTimer longestWaitTimer_;
};

} // namespace tavrel
