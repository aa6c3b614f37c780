#include "platform/linux/plists/PreferenceFile.h"

#include "platform/linux/system/FileDescriptor.h"
#include "platform/linux/system/FileReplacement.h"

#include <climits>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <variant>

namespace tavrel {

namespace {

constexpr off_t largestPreferenceFile = off_t{256} * 1024 * 1024;

std::string systemProblem() {
  return std::strerror(errno);
}

PreferenceFile unreadable(std::string problem) {
  PreferenceFile file;
  file.state = PreferenceFileState::unreadable;
  file.problem = std::move(problem);
  return file;
}

std::optional<Bytes> contents(int descriptor, std::size_t expected) {
  Bytes bytes(expected + 1);
  std::size_t filled = 0;
  while (true) {
    if (filled == bytes.size())
      bytes.resize(bytes.size() * 2);
    const ssize_t got = ::read(descriptor, bytes.data() + filled, bytes.size() - filled);
    if (got < 0 && errno != EINTR)
      return std::nullopt;
    if (got == 0 || filled > static_cast<std::size_t>(largestPreferenceFile))
      break;
    filled += got > 0 ? static_cast<std::size_t>(got) : 0;
  }
  bytes.resize(filled);
  return bytes;
}

// What the file holds, or why there is nothing of it.
std::variant<Bytes, PreferenceFile> bytesOf(const std::string& path) {
  const FileDescriptor descriptor(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  if (!descriptor.isOpen())
    return errno == ENOENT ? PreferenceFile() : unreadable(systemProblem());
  struct stat status {};
  if (::fstat(descriptor.get(), &status) != 0)
    return unreadable(systemProblem());
  if (!S_ISREG(status.st_mode))
    return unreadable("is no file");
  if (status.st_size > largestPreferenceFile)
    return unreadable("is larger than 256 MiB");
  auto bytes = contents(descriptor.get(), static_cast<std::size_t>(status.st_size));
  if (!bytes)
    return unreadable(systemProblem());
  return *std::move(bytes);
}

PreferenceFile decoded(const Bytes& bytes) {
  DecodedPropertyList list = decodePropertyList(bytes);
  PreferenceFile file;
  file.form = list.form;
  const bool dictionary = list.value && list.value->dictionary();
  file.state = dictionary ? PreferenceFileState::readable : PreferenceFileState::malformed;
  if (dictionary)
    file.values = *list.value->dictionary();
  else
    file.problem = list.value ? "holds no dictionary" : list.problem;
  return file;
}

} // namespace

PreferenceFile readPreferenceFile(const std::string& path) {
  return PreferenceReader().read(path);
}

const PreferenceFile& PreferenceReader::read(const std::string& path) {
  auto found = bytesOf(path);
  auto* bytes = std::get_if<Bytes>(&found);
  const bool isDecoded =
      file_.state == PreferenceFileState::readable || file_.state == PreferenceFileState::malformed;
  if (bytes && isDecoded && *bytes == bytes_)
    return file_;
  file_ = bytes ? decoded(*bytes) : std::get<PreferenceFile>(std::move(found));
  bytes_ = bytes ? std::move(*bytes) : Bytes();
  return file_;
}

std::optional<std::string> moveAside(const std::string& path) {
  const std::string target = resolvingLinks(path);
  for (int number = 1; number < INT_MAX; ++number) {
    const std::string aside = target + ".malformed-" + std::to_string(number);
    if (::renameat2(AT_FDCWD, target.c_str(), AT_FDCWD, aside.c_str(), RENAME_NOREPLACE) == 0)
      return aside;
    if (errno != EEXIST)
      return std::nullopt;
  }
  return std::nullopt;
}

} // namespace tavrel
