#pragma once

#include "platform/Files.h"

#include <condition_variable>
#include <memory>
#include <mutex>

namespace tavrel {

/// What is known of a folder so far, shared by the thread that reads it and the one that waits.
struct FolderReading {
  std::mutex mutex;
  std::condition_variable finished;
  std::vector<ListedFile> files;
  bool namesRead = false;
  bool done = false;
  std::string asking; ///< the name that is being asked about
};

/// Reads a folder: its names first, then what they leave open, the most doubtful last. Until it is
/// asked, a folder counts as one that is no package, and a link leads nowhere. May take for ever.
void readFolder(const std::string& folder, FolderReading& reading);

} // namespace tavrel
