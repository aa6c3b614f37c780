#include "platform/linux/transfers/StagingFolder.h"

#include "platform/linux/transfers/ExclusiveRename.h"

#include <fcntl.h>
#include <random>

namespace tavrel {

StagingFolder::StagingFolder(int parent, const std::string& parentPath, Staged staged,
                             const std::string& journal)
    : parent_(parent), staged_(staged) {
  make(parentPath, journal);
  if (name_.empty())
    return;
  folder_ = FileDescriptor(
      ::openat(parent, name_.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
  error_ = outcome(folder_.get());
}

void StagingFolder::make(const std::string& parentPath, const std::string& journal) {
  constexpr int attempts = 100;
  std::random_device random;
  int error = EEXIST;
  for (int attempt = 0; attempt < attempts && error == EEXIST; ++attempt) {
    const std::string name = ".tavrel-transfer-" + std::to_string(random());
    entry_.emplace(journal, name, staged_, parentPath);
    error = ::mkdirat(parent_, name.c_str(), S_IRWXU) == 0 ? 0 : errno;
    if (error == 0)
      name_ = name;
    else if (error != EEXIST) // it may have been made all the same
      (void)::unlinkat(parent_, name.c_str(), AT_REMOVEDIR);
    if (error == EEXIST || (error != 0 && isGone({parent_, name})))
      entry_->strike();
  }
  error_ = {error, std::generic_category()};
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
  if (!name_.empty())
    return error;
  if (entry_)
    entry_->strike();
  return {};
}

} // namespace tavrel
