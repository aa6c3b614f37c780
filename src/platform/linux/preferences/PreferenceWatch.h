#pragma once

#include <QFileSystemWatcher>
#include <QObject>
#include <QTimer>

#include <functional>
#include <string>

namespace tavrel {

/// Watches one file, however it is saved: written in place, replaced by another of its name, made
/// or removed, itself or where a link leads. Calls back once a change has been quiet for a moment,
/// from the event loop; who goes on writing is not waited for forever.
class PreferenceWatch final : public QObject {
public:
  /// Neither the file nor its folder need exist.
  PreferenceWatch(std::string path, std::function<void()> changed);

private:
  void watchPlaces();
  void notice();
  void tell();
  [[nodiscard]] std::string stamp() const;

  std::string path_;
  std::function<void()> changed_;
  std::string seen_; ///< what the file looked like when it was told last
  QFileSystemWatcher watcher_;
  QTimer quiet_;
  QTimer patience_;
};

} // namespace tavrel
