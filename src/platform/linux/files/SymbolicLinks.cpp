#include "platform/linux/files/SymbolicLinks.h"

#include "platform/linux/files/MountHealth.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <linux/openat2.h>
#include <memory>
#include <sys/syscall.h>
#include <unistd.h>

namespace tavrel {

namespace {
constexpr std::chrono::milliseconds keptFor{100};

/// One question to the kernel answers for all components; walking them takes one for each. Where
/// the kernel does not know the question the answer is true.
bool mayHoldLinks(const std::string& path) {
  open_how how{};
  how.flags = O_PATH | O_CLOEXEC;
  how.resolve = RESOLVE_NO_SYMLINKS;
  const long file = ::syscall(SYS_openat2, AT_FDCWD, path.c_str(), &how, sizeof how);
  if (file < 0)
    return true;
  ::close(static_cast<int>(file));
  return false;
}

/// Of the thing at the path itself; what is missing is none.
bool isLink(const std::string& path) {
  char target = 0;
  return ::readlink(path.c_str(), &target, sizeof target) >= 0;
}

std::string realPath(const std::string& path) {
  const std::unique_ptr<char, void (*)(void*)> resolved(::realpath(path.c_str(), nullptr),
                                                        std::free);
  return resolved ? std::string(resolved.get()) : path;
}

} // namespace

std::string SymbolicLinks::resolved(std::string path) {
  if (path.find('\0') != std::string::npos)
    return path;
  if (const auto point = doubtfulMountOf(path, FinalLink::follow))
    return askAt(*point, path, [path] { return realPath(path); });
  return isWithoutLinks(path) ? path : realPath(path);
}

bool SymbolicLinks::isWithoutLinks(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  if (slash == std::string::npos || path.ends_with('/') || path.ends_with("/.") ||
      path.ends_with("/.."))
    return !mayHoldLinks(path);
  return isFolderWithoutLinks(std::string_view(path).substr(0, slash + 1)) && !isLink(path);
}

bool SymbolicLinks::isFolderWithoutLinks(std::string_view folder) {
  const auto now = std::chrono::steady_clock::now();
  if (folder == folder_ && now - checked_ < keptFor)
    return true;
  std::string asked(folder);
  if (mayHoldLinks(asked))
    return false;
  folder_ = std::move(asked);
  checked_ = now;
  return true;
}

} // namespace tavrel
