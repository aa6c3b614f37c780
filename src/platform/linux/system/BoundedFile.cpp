#include "platform/linux/system/BoundedFile.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tavrel {

namespace {

/// A file descriptor that is closed.
class OpenedFile {
public:
  explicit OpenedFile(int number) : number_(number) {}
  OpenedFile(const OpenedFile&) = delete;
  OpenedFile& operator=(const OpenedFile&) = delete;
  ~OpenedFile() {
    if (number_ >= 0)
      ::close(number_);
  }
  [[nodiscard]] int number() const { return number_; }

private:
  int number_;
};

bool isRegular(const std::string& path) {
  struct stat status {};
  return path.find('\0') == std::string::npos && ::stat(path.c_str(), &status) == 0 &&
         S_ISREG(status.st_mode);
}

/// Its size; nothing when it is no regular file. Asked again after opening: another thing may
/// stand there by now.
std::optional<std::size_t> regularSize(const OpenedFile& file) {
  struct stat status {};
  if (file.number() < 0 || ::fstat(file.number(), &status) != 0 || !S_ISREG(status.st_mode))
    return std::nullopt;
  return static_cast<std::size_t>(status.st_size);
}

std::optional<std::string> readUpTo(const OpenedFile& file, std::size_t count) {
  std::string content(count, '\0');
  std::size_t filled = 0;
  while (filled < count) {
    const ssize_t got = ::read(file.number(), content.data() + filled, count - filled);
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
  if (!isRegular(path))
    return std::nullopt;
  const OpenedFile file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK));
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
