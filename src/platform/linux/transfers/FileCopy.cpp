#include "platform/linux/transfers/FileCopy.h"

#include "platform/linux/system/FileDescriptor.h"
#include "platform/linux/system/FileMetadata.h"

#include <algorithm>
#include <cstring>
#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <vector>

namespace tavrel {

namespace {

constexpr std::size_t blockSize = std::size_t{1} << 18;

std::error_code changedMeanwhile() {
  return std::make_error_code(std::errc::resource_unavailable_try_again);
}

std::error_code writeAll(int to, const char* data, std::size_t size, off_t at) {
  while (size > 0) {
    const ssize_t written = ::pwrite(to, data, size, at);
    if (written < 0 && errno == EINTR)
      continue;
    if (written < 0)
      return lastError();
    data += written;
    at += written;
    size -= static_cast<std::size_t>(written);
  }
  return {};
}

/// Up to `size` bytes; fewer at the end of the file alone. -1 for an error.
ssize_t readBlock(int from, char* data, std::size_t size, off_t at) {
  std::size_t filled = 0;
  while (filled < size) {
    const ssize_t count =
        ::pread(from, data + filled, size - filled, at + static_cast<off_t>(filled));
    if (count < 0 && errno == EINTR)
      continue;
    if (count < 0)
      return -1;
    if (count == 0)
      break;
    filled += static_cast<std::size_t>(count);
  }
  return static_cast<ssize_t>(filled);
}

/// A range of data without holes; on file systems that know no holes the whole file.
struct Extent {
  off_t begin = 0;
  off_t end = 0;
};

Extent nextExtent(int from, off_t at, off_t size) {
  const off_t begin = ::lseek(from, at, SEEK_DATA);
  if (begin < 0)
    return errno == ENXIO ? Extent{size, size} : Extent{at, size};
  const off_t end = ::lseek(from, begin, SEEK_HOLE);
  return {begin, end < 0 ? size : std::min(end, size)};
}

std::error_code copyBlock(int from, int to, std::vector<char>& block, std::size_t size, off_t at) {
  const ssize_t count = readBlock(from, block.data(), size, at);
  if (count < 0)
    return lastError();
  if (static_cast<std::size_t>(count) < size)
    return changedMeanwhile();
  return writeAll(to, block.data(), size, at);
}

std::error_code compareBlock(int from, int to, std::vector<char>& block, std::size_t size,
                             off_t at) {
  const std::size_t half = block.size() / 2;
  const ssize_t count = readBlock(from, block.data(), size, at);
  const ssize_t copied = readBlock(to, block.data() + half, size, at);
  if (count < 0 || copied < 0)
    return lastError();
  const bool same = static_cast<std::size_t>(count) == size && copied == count &&
                    std::memcmp(block.data(), block.data() + half, size) == 0;
  return same ? std::error_code() : changedMeanwhile();
}

using BlockStep = std::error_code (*)(int, int, std::vector<char>&, std::size_t, off_t);

/// Calls the step for every block of data; holes are skipped.
std::error_code forEachBlock(int from, int to, off_t size, BlockStep step) {
  std::vector<char> block(2 * blockSize);
  for (Extent extent = nextExtent(from, 0, size); extent.begin < size;
       extent = nextExtent(from, extent.end, size))
    for (off_t at = extent.begin; at < extent.end; at += static_cast<off_t>(blockSize)) {
      const auto count =
          std::min<std::size_t>(blockSize, static_cast<std::size_t>(extent.end - at));
      if (const auto error = step(from, to, block, count, at))
        return error;
    }
  return {};
}

std::error_code copyContents(int from, int to, off_t size) {
  if (::ioctl(to, FICLONE, from) == 0)
    return {};
  if (::ftruncate(to, size) != 0)
    return lastError();
  return forEachBlock(from, to, size, copyBlock);
}

/// Besides the blocks, whether there is more to read than was copied: the file may have grown, or
/// report a size of 0, as files in /proc do.
std::error_code verifyContents(int from, int to, const struct stat& before) {
  struct stat after = {};
  char beyond = 0;
  if (::fstat(from, &after) != 0)
    return lastError();
  if (after.st_size != before.st_size || after.st_mtim.tv_sec != before.st_mtim.tv_sec ||
      after.st_mtim.tv_nsec != before.st_mtim.tv_nsec ||
      readBlock(from, &beyond, 1, before.st_size) != 0)
    return changedMeanwhile();
  return forEachBlock(from, to, before.st_size, compareBlock);
}

std::error_code copyFile(NameInFolder from, NameInFolder to) {
  // O_NONBLOCK, for the file may have been replaced by a pipe, whose opening would block.
  const FileDescriptor source(
      ::openat(from.folder, from.name.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
  struct stat status = {};
  if (!source.isOpen() || ::fstat(source.get(), &status) != 0)
    return lastError();
  if (!S_ISREG(status.st_mode))
    return changedMeanwhile();
  FileDescriptor copy(::openat(to.folder, to.name.c_str(),
                               O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC,
                               S_IRUSR | S_IWUSR));
  if (!copy.isOpen())
    return lastError();
  if (const auto error = copyContents(source.get(), copy.get(), status.st_size))
    return error;
  if (const auto error = verifyContents(source.get(), copy.get(), status))
    return error;
  if (const auto error = copyMetadata(source.get(), status, copy.get()))
    return error;
  return outcome(copy.close());
}

std::error_code copyLink(NameInFolder from, const struct stat& status, NameInFolder to) {
  std::string target(static_cast<std::size_t>(std::max<off_t>(status.st_size, PATH_MAX)) + 1, '\0');
  const ssize_t length = ::readlinkat(from.folder, from.name.c_str(), target.data(), target.size());
  if (length < 0)
    return lastError();
  target.resize(static_cast<std::size_t>(length));
  if (::symlinkat(target.c_str(), to.folder, to.name.c_str()) != 0)
    return lastError();
  copyNodeMetadata(status, to.folder, to.name);
  return {};
}

std::error_code makeNode(const struct stat& status, NameInFolder to) {
  if (::mknodat(to.folder, to.name.c_str(), (status.st_mode & S_IFMT) | S_IRUSR | S_IWUSR,
                status.st_rdev) != 0)
    return lastError();
  copyNodeMetadata(status, to.folder, to.name);
  return {};
}

} // namespace

std::error_code copyNode(NameInFolder from, const struct stat& status, NameInFolder to) {
  if (S_ISREG(status.st_mode))
    return copyFile(from, to);
  return S_ISLNK(status.st_mode) ? copyLink(from, status, to) : makeNode(status, to);
}

} // namespace tavrel
