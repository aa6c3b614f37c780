#pragma once

#include "platform/linux/images/FileIconFacts.h"

#include <QElapsedTimer>

#include <functional>
#include <memory>

namespace tavrel {

/// Asks file systems for what icons need, in threads of its own: a menu can be used meanwhile. The
/// latest question goes first, for it is about what is seen now. A file system that never answers
/// keeps a thread; those of others go on as long as there are threads left.
class IconLookups {
public:
  using Answer = std::function<void(FileIconFacts)>; ///< called in the main thread
  using Folders = std::shared_ptr<const SpecialFolders>;

  using Find = std::function<FileIconFacts(const std::string& path, const SpecialFolders& folders)>;

  explicit IconLookups(Find find = readFileIconFacts);
  ~IconLookups();
  IconLookups(const IconLookups&) = delete;
  IconLookups& operator=(const IconLookups&) = delete;

  /// `dropped` is called instead when too many newer questions came before it was this one's turn.
  void ask(const std::string& path, Folders folders, Answer answer, std::function<void()> dropped);

  /// Most answers come at once: gives them a moment, so that icons need not appear one by one. It
  /// takes a tenth of the time at most, however often it is called. Ends when `done` holds.
  void waitBriefly(const std::function<bool()>& done);

private:
  struct Shared;
  void deliver();

  std::shared_ptr<Shared> shared_;
  QElapsedTimer period_;
  qint64 waited_ = 0; ///< milliseconds of this period
};

} // namespace tavrel
