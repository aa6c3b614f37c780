#include "platform/linux/system/BoundedFile.h"

#include "platform/linux/system/FileDescriptor.h"

#include <algorithm>
#include <fcntl.h>
#include <sys/stat.h>

namespace tavrel {

namespace {

bool isRegular(const std::string& path) {
  struct stat status = {};
  return path.find('\0') == std::string::npos && ::stat(path.c_str(), &status) == 0 &&
         S_ISREG(status.st_mode);
}

/// The size of an open file; nothing when it is no regular one. Checked again after opening,
/// because the file may have been replaced between stat and open.
std::optional<std::size_t> regularSize(const FileDescriptor& file) {
  struct stat status = {};
  if (!file.isOpen() || ::fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode))
    return std::nullopt;
  return static_cast<std::size_t>(status.st_size);
}

std::optional<std::string> readUpTo(const FileDescriptor& file, std::size_t count) {
  std::string content(count, '\0');
  std::size_t filled = 0;
  while (filled < count) {
    const ssize_t got = ::read(file.get(), content.data() + filled, count - filled);
    if (got < 0 && errno == EINTR)
      continue;
    if (got < 0)
      return std::nullopt;
    if (got == 0)
      break;
    filled += static_cast<std::size_t>(got);
  }
  content.resize(filled);
  return content;
}

} // namespace

std::optional<std::string> readStart(const std::string& path, std::size_t count) {
  return isRegular(path) ? readStartOfRegular(path, count) : std::nullopt;
}

std::optional<std::string> readStartOfRegular(const std::string& path, std::size_t count) {
  const FileDescriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK));
  const auto size = regularSize(file);
  return size ? readUpTo(file, std::min(*size, count)) : std::nullopt;
}

std::optional<std::string> readFile(const std::string& path, std::size_t limit) {
  auto content = readStart(path, limit + 1);
  if (content && content->size() > limit)
    return std::nullopt;
  return content;
}

} // namespace tavrel
