#include "platform/linux/plists/PropertyListFile.h"

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

constexpr off_t largestPropertyListFile = off_t{256} * 1024 * 1024;

std::string errnoText() {
  return std::strerror(errno);
}

PropertyListFile unreadable(std::string problem) {
  PropertyListFile file;
  file.state = PropertyListFileState::unreadable;
  file.problem = std::move(problem);
  return file;
}

std::optional<Bytes> readAll(int descriptor, std::size_t expected) {
  Bytes bytes(expected + 1);
  std::size_t filled = 0;
  while (true) {
    if (filled == bytes.size())
      bytes.resize(bytes.size() * 2);
    const ssize_t got = ::read(descriptor, bytes.data() + filled, bytes.size() - filled);
    if (got < 0 && errno != EINTR)
      return std::nullopt;
    if (got == 0 || filled > static_cast<std::size_t>(largestPropertyListFile))
      break;
    filled += got > 0 ? static_cast<std::size_t>(got) : 0;
  }
  bytes.resize(filled);
  return bytes;
}

// The bytes of the file; a file without values when it is missing or cannot be read.
std::variant<Bytes, PropertyListFile> readBytes(const std::string& path) {
  const FileDescriptor descriptor(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  if (!descriptor.isOpen())
    return errno == ENOENT ? PropertyListFile() : unreadable(errnoText());
  struct stat status = {};
  if (::fstat(descriptor.get(), &status) != 0)
    return unreadable(errnoText());
  if (!S_ISREG(status.st_mode))
    return unreadable("is no file");
  if (status.st_size > largestPropertyListFile)
    return unreadable("is larger than 256 MiB");
  auto bytes = readAll(descriptor.get(), static_cast<std::size_t>(status.st_size));
  if (!bytes)
    return unreadable(errnoText());
  return *std::move(bytes);
}

PropertyListFile decode(const Bytes& bytes) {
  DecodedPropertyList list = decodePropertyList(bytes);
  PropertyListFile file;
  file.form = list.form;
  const bool dictionary = list.value && list.value->dictionary();
  file.state = dictionary ? PropertyListFileState::readable : PropertyListFileState::malformed;
  if (dictionary)
    file.values = *list.value->dictionary();
  else
    file.problem = list.value ? "holds no dictionary" : list.problem;
  return file;
}

} // namespace

PropertyListFile readPropertyListFile(const std::string& path) {
  return PropertyListReader().read(path);
}

const PropertyListFile& PropertyListReader::read(const std::string& path) {
  auto found = readBytes(path);
  auto* bytes = std::get_if<Bytes>(&found);
  const bool isDecoded = file_.state == PropertyListFileState::readable ||
                         file_.state == PropertyListFileState::malformed;
  if (bytes && isDecoded && *bytes == bytes_)
    return file_;
  file_ = bytes ? decode(*bytes) : std::get<PropertyListFile>(std::move(found));
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
