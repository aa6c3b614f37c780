#pragma once

#include "platform/Files.h"

#include <chrono>
#include <functional>
#include <string>
#include <vector>

namespace tavrel {

/// How a folder is read: its names, then what there is to tell of each. Both are asked from a
/// thread of their own, which may outlive the caller.
struct FolderQuestions {
  std::function<std::vector<std::string>()> names;
  std::function<ListedFile(const std::string& name)> describe;
};

/// Reads a folder for as long as answers come. Once none has come for `timeout`, the names that
/// nothing is known of yet are of the kind `none`, and the thread is left to itself.
[[nodiscard]] std::vector<ListedFile> listWithin(const FolderQuestions& ask,
                                                 std::chrono::milliseconds timeout);

} // namespace tavrel
