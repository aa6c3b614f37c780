#pragma once

#include "platform/Files.h"

#include <chrono>
#include <map>
#include <memory>

namespace tavrel {

struct FolderReading;

/// Reads folders, each in a thread of its own that is waited for a short while: a file system that
/// does not answer (a share whose server is gone) costs the menu this while and no more. What was
/// found out by then is the answer; a line on standard error tells what is missing. A thread that
/// gets no answer at all ends with the process.
class FolderListings {
public:
  explicit FolderListings(std::chrono::milliseconds timeout) : timeout_(timeout) {}

  /// As `Files::browse`. While a reading of the same folder is still stuck it is not tried again.
  [[nodiscard]] std::vector<ListedFile> browse(const std::string& folder);

private:
  std::chrono::milliseconds timeout_;
  std::map<std::string, std::shared_ptr<FolderReading>> stuck_; ///< by folder
};

} // namespace tavrel
