#include "platform/linux/plists/PreferenceFile.h"

#include "base/PathString.h"
#include "platform/linux/system/FileMetadata.h"

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>
#include <variant>

namespace tavrel {

namespace {

constexpr off_t largestPreferenceFile = off_t{256} * 1024 * 1024;
constexpr mode_t newFileMode = 0600;

class Descriptor {
public:
  explicit Descriptor(int number) : number_(number) {}
  ~Descriptor() {
    if (number_ >= 0)
      ::close(number_);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  [[nodiscard]] int number() const { return number_; }
  [[nodiscard]] bool isOpen() const { return number_ >= 0; }

private:
  int number_;
};

// A file that is not there has none.
void keepAttributes(const std::string& path, int descriptor) {
  const Descriptor old(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  if (old.isOpen())
    copyAttributes(old.number(), descriptor);
}

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
  const Descriptor descriptor(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  if (!descriptor.isOpen())
    return errno == ENOENT ? PreferenceFile() : unreadable(systemProblem());
  struct stat status {};
  if (::fstat(descriptor.number(), &status) != 0)
    return unreadable(systemProblem());
  if (!S_ISREG(status.st_mode))
    return unreadable("is no file");
  if (status.st_size > largestPreferenceFile)
    return unreadable("is larger than 256 MiB");
  auto bytes = contents(descriptor.number(), static_cast<std::size_t>(status.st_size));
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

// Where a link leads in the end; the path itself when it is none, or leads nowhere.
std::string throughLinks(const std::string& path) {
  const std::unique_ptr<char, decltype(&std::free)> resolved(::realpath(path.c_str(), nullptr),
                                                             &std::free);
  return resolved ? resolved.get() : path;
}

bool writeAll(int descriptor, const Bytes& bytes) {
  std::size_t written = 0;
  while (written < bytes.size()) {
    const ssize_t put = ::write(descriptor, bytes.data() + written, bytes.size() - written);
    if (put < 0 && errno != EINTR)
      return false;
    written += put > 0 ? static_cast<std::size_t>(put) : 0;
  }
  return true;
}

// Of a pipe or a device there would be nothing left; nothing when that is what is there.
std::optional<mode_t> modeFor(const std::string& path) {
  struct stat status {};
  if (::stat(path.c_str(), &status) != 0)
    return newFileMode;
  return S_ISREG(status.st_mode) ? std::optional(status.st_mode & 07777) : std::nullopt;
}

bool makeFolders(const std::string& folder) {
  if (folder.empty() || ::access(folder.c_str(), F_OK) == 0)
    return true;
  return makeFolders(deletingLastPathComponent(folder)) &&
         (::mkdir(folder.c_str(), 0700) == 0 || errno == EEXIST);
}

void syncFolder(const std::string& folder) {
  const Descriptor descriptor(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (descriptor.isOpen())
    ::fsync(descriptor.number());
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

std::string replaceFile(const std::string& path, const Bytes& bytes) {
  const std::string target = throughLinks(path);
  const std::string folder = deletingLastPathComponent(target);
  if (!makeFolders(folder))
    return systemProblem();
  std::string temporary = appendingPathComponent(folder, ".tavrel-XXXXXX");
  const auto mode = modeFor(target);
  if (!mode)
    return "is no file";
  const Descriptor descriptor(::mkostemp(temporary.data(), O_CLOEXEC));
  if (!descriptor.isOpen())
    return systemProblem();
  keepAttributes(target, descriptor.number());
  const bool replaced =
      writeAll(descriptor.number(), bytes) && ::fchmod(descriptor.number(), *mode) == 0 &&
      ::fsync(descriptor.number()) == 0 && ::rename(temporary.c_str(), target.c_str()) == 0;
  if (replaced) {
    syncFolder(folder);
    return {};
  }
  std::string problem = systemProblem();
  ::unlink(temporary.c_str());
  return problem;
}

std::optional<std::string> moveAside(const std::string& path) {
  const std::string target = throughLinks(path);
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
