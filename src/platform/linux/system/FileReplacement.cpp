#include "platform/linux/system/FileReplacement.h"

#include "base/PathString.h"
#include "platform/linux/system/FileDescriptor.h"
#include "platform/linux/system/FileMetadata.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <memory>
#include <optional>
#include <sys/stat.h>

namespace tavrel {

namespace {

constexpr mode_t newFileMode = 0600;
constexpr mode_t newFolderMode = 0700;

std::string errnoText() {
  return std::strerror(errno);
}

bool makeFolders(const std::string& folder) {
  if (folder.empty() || ::access(folder.c_str(), F_OK) == 0)
    return true;
  return makeFolders(deletingLastPathComponent(folder)) &&
         (::mkdir(folder.c_str(), newFolderMode) == 0 || errno == EEXIST);
}

/// The mode for the new file; nothing when a pipe or a device is there, which cannot be replaced.
std::optional<mode_t> modeFor(const std::string& path) {
  struct stat status = {};
  if (::stat(path.c_str(), &status) != 0)
    return newFileMode;
  return S_ISREG(status.st_mode) ? std::optional(status.st_mode & 07777) : std::nullopt;
}

void keepAttributes(const std::string& path, int replacement) {
  const FileDescriptor old(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  if (old.isOpen())
    copyAttributes(old.get(), replacement);
}

bool writeAll(int descriptor, const Bytes& bytes) {
  std::size_t written = 0;
  while (written < bytes.size()) {
    const ssize_t count = ::write(descriptor, bytes.data() + written, bytes.size() - written);
    if (count < 0 && errno != EINTR)
      return false;
    written += count > 0 ? static_cast<std::size_t>(count) : 0;
  }
  return true;
}

/// Without it a power failure could bring the old name back.
void syncFolder(const std::string& folder) {
  const FileDescriptor descriptor(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (descriptor.isOpen())
    ::fsync(descriptor.get());
}

} // namespace

std::string resolvingLinks(const std::string& path) {
  const std::unique_ptr<char, decltype(&std::free)> resolved(::realpath(path.c_str(), nullptr),
                                                             &std::free);
  return resolved ? resolved.get() : path;
}

std::string replaceFile(const std::string& path, const Bytes& bytes) {
  const std::string target = resolvingLinks(path);
  const std::string folder = deletingLastPathComponent(target);
  if (!makeFolders(folder))
    return errnoText();
  std::string temporary = appendingPathComponent(folder, ".tavrel-XXXXXX");
  const auto mode = modeFor(target);
  if (!mode)
    return "is no file";
  const FileDescriptor descriptor(::mkostemp(temporary.data(), O_CLOEXEC));
  if (!descriptor.isOpen())
    return errnoText();
  keepAttributes(target, descriptor.get());
  const bool replaced = writeAll(descriptor.get(), bytes) &&
                        ::fchmod(descriptor.get(), *mode) == 0 && ::fsync(descriptor.get()) == 0 &&
                        ::rename(temporary.c_str(), target.c_str()) == 0;
  if (replaced) {
    syncFolder(folder);
    return {};
  }
  std::string problem = errnoText();
  ::unlink(temporary.c_str());
  return problem;
}

} // namespace tavrel
