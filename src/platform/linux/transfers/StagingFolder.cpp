#include "platform/linux/transfers/StagingFolder.h"

#include "platform/linux/transfers/ExclusiveRename.h"

#include <fcntl.h>
#include <random>

namespace tavrel {

namespace {

std::string makeHiddenFolder(int parent) {
  constexpr int attempts = 100;
  std::random_device random;
  for (int attempt = 0; attempt < attempts; ++attempt) {
    std::string name = ".tavrel-transfer-" + std::to_string(random());
    if (::mkdirat(parent, name.c_str(), S_IRWXU) == 0)
      return name;
    if (errno == EEXIST)
      continue;
    const int error = errno;
    (void)::unlinkat(parent, name.c_str(), AT_REMOVEDIR); // it may have been made all the same
    errno = error;
    break;
  }
  return {};
}

} // namespace

StagingFolder::StagingFolder(int parent, Staged staged)
    : parent_(parent), staged_(staged), name_(makeHiddenFolder(parent)) {
  if (!name_.empty())
    folder_ = FileDescriptor(
        ::openat(parent, name_.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
}

// Twice, for a share may lose one answer.
std::error_code StagingFolder::remove() {
  std::error_code error;
  for (int attempt = 0; attempt < 2 && !name_.empty(); ++attempt) {
    error = staged_ == Staged::copies ? removeTree(parent_, name_)
                                      : outcome(::unlinkat(parent_, name_.c_str(), AT_REMOVEDIR));
    if (!error || isGone({parent_, name_}))
      name_.clear();
  }
  return name_.empty() ? std::error_code() : error;
}

} // namespace tavrel
