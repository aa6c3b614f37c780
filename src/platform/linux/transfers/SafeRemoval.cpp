#include "platform/linux/transfers/SafeRemoval.h"

#include "base/PathString.h"
#include "platform/linux/system/FileDescriptor.h"

#include <cerrno>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <vector>

namespace tavrel {

namespace {

constexpr int folderFlags = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;
constexpr int deepestRemoval = 500; // each level takes a file descriptor and a stack frame

std::string problemOf(int number) {
  return number == 0 || number == ENOENT ? std::string() : std::string(std::strerror(number));
}

bool isBelow(const std::string& relative) {
  return !relative.empty() && relative.front() != '/' && !hasParentSegment(relative) &&
         relative.find('\0') == std::string::npos && removingDotSegments(relative) == relative &&
         relative != ".";
}

struct StreamCloser {
  void operator()(DIR* stream) const { ::closedir(stream); }
};

std::vector<std::string> namesIn(int folder) {
  const std::unique_ptr<DIR, StreamCloser> stream(::fdopendir(::fcntl(folder, F_DUPFD_CLOEXEC, 0)));
  std::vector<std::string> names;
  while (const dirent* each = stream ? ::readdir(stream.get()) : nullptr)
    if (std::string name = static_cast<const char*>(each->d_name); name != "." && name != "..")
      names.push_back(std::move(name));
  return names;
}

int removeAt(int folder, const std::string& name, int depth);

int removeContents(int folder, const std::string& name, int depth) {
  const FileDescriptor inner(::openat(folder, name.c_str(), folderFlags));
  if (!inner.isOpen())
    return errno;
  int first = 0;
  for (const std::string& each : namesIn(inner.get()))
    if (const int number = removeAt(inner.get(), each, depth + 1); first == 0)
      first = number;
  return first;
}

int removeAt(int folder, const std::string& name, int depth) {
  if (::unlinkat(folder, name.c_str(), 0) == 0)
    return 0;
  if (errno != EISDIR && errno != EPERM)
    return errno;
  if (depth > deepestRemoval)
    return ELOOP;
  if (const int number = removeContents(folder, name, depth); number != 0)
    return number;
  return ::unlinkat(folder, name.c_str(), AT_REMOVEDIR) == 0 ? 0 : errno;
}

} // namespace

std::string removeBelow(const std::string& folder, const std::string& relative) {
  if (!isBelow(relative))
    return "is no place of ours";
  FileDescriptor parent(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  std::string rest = relative;
  for (std::size_t slash = rest.find('/'); parent.isOpen() && slash != std::string::npos;
       slash = rest.find('/')) {
    parent = FileDescriptor(::openat(parent.get(), rest.substr(0, slash).c_str(), folderFlags));
    rest.erase(0, slash + 1);
  }
  if (!parent.isOpen())
    return errno == ELOOP || errno == ENOTDIR ? "leads through a link" : problemOf(errno);
  return problemOf(removeAt(parent.get(), rest, 0));
}

} // namespace tavrel
