#pragma once

#include "platform/linux/images/IconChoice.h"

#include <QElapsedTimer>

#include <functional>
#include <memory>

namespace tavrel {

/// Reads what icons need from file systems, in threads of its own, so that a menu can be used
/// meanwhile. The latest request goes first, for it is about an entry that is visible now. A file
/// system that never answers blocks a thread; the others go on as long as there are threads left.
class IconLookups {
public:
  using Callback = std::function<void(FileIconFacts)>; ///< called in the main thread
  using Folders = std::shared_ptr<const SpecialFolderIcons>;

  using Find =
      std::function<FileIconFacts(const std::string& path, const SpecialFolderIcons& folders)>;

  explicit IconLookups(Find find = readFileIconFacts);
  ~IconLookups();
  IconLookups(const IconLookups&) = delete;
  IconLookups& operator=(const IconLookups&) = delete;

  /// `dropped` is called instead of the callback when this request still waits and more than 256
  /// newer ones came.
  void request(const std::string& path, Folders folders, Callback found,
               std::function<void()> dropped);

  /// Waits until `done` holds, but not for long: most icons are found at once, and need not appear
  /// one by one. However often it is called, it waits 25 ms of 250 ms at most.
  void waitBriefly(const std::function<bool()>& done);

private:
  struct Shared;
  void deliver();

  std::shared_ptr<Shared> shared_;
  QElapsedTimer period_;
  qint64 waited_ = 0; ///< milliseconds of this period
};

} // namespace tavrel
