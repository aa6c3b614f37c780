#include "platform/linux/transfers/StagingFolder.h"

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
    if (errno != EEXIST)
      break;
  }
  return {};
}

} // namespace

StagingFolder::StagingFolder(int parent) : parent_(parent), name_(makeHiddenFolder(parent)) {
  if (!name_.empty())
    folder_ = FileDescriptor(
        ::openat(parent, name_.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
}

StagingFolder::~StagingFolder() {
  if (!name_.empty())
    (void)removeTree(parent_, name_);
}

} // namespace tavrel
