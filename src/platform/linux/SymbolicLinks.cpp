#include "platform/linux/SymbolicLinks.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <linux/openat2.h>
#include <memory>
#include <sys/syscall.h>
#include <unistd.h>

namespace tavrel {

namespace {

/// One question to the kernel answers for all components; walking them takes one for each. Where
/// the kernel does not know the question the answer is true.
bool mayHoldLinks(const std::string& path) {
  open_how how{};
  how.flags = O_PATH | O_CLOEXEC;
  how.resolve = RESOLVE_NO_SYMLINKS;
  const long file = ::syscall(SYS_openat2, AT_FDCWD, path.c_str(), &how, sizeof how);
  if (file < 0)
    return errno != ENOENT;
  ::close(static_cast<int>(file));
  return false;
}

} // namespace

std::string withoutSymbolicLinks(std::string path) {
  if (path.find('\0') != std::string::npos || !mayHoldLinks(path))
    return path;
  const std::unique_ptr<char, void (*)(void*)> resolved(::realpath(path.c_str(), nullptr),
                                                        std::free);
  return resolved ? std::string(resolved.get()) : path;
}

} // namespace tavrel
