#pragma once

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tavrel {

/// A folder of its own for a test, gone afterwards.
class ScratchFolder {
public:
  ScratchFolder() {
    // Not in the test's private temporary folder, which a plain person could not enter.
    std::string pattern = "/tmp/tavrel-test-XXXXXX";
    path_ = ::mkdtemp(pattern.data());
    ::chmod(path_.c_str(), 0755);
  }
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;
  ~ScratchFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  [[nodiscard]] const std::filesystem::path& path() const { return path_; }

private:
  std::filesystem::path path_;
};

/// A small file system in memory, mounted on a folder.
class SmallDisk {
public:
  SmallDisk(const std::filesystem::path& where, const std::string& options) : where_(where) {
    std::filesystem::create_directories(where);
    mounted_ = ::mount("tmpfs", where.c_str(), "tmpfs", 0, options.c_str()) == 0;
  }
  SmallDisk(const SmallDisk&) = delete;
  SmallDisk& operator=(const SmallDisk&) = delete;
  ~SmallDisk() {
    if (mounted_)
      ::umount2(where_.c_str(), MNT_DETACH);
  }
  [[nodiscard]] bool isMounted() const { return mounted_; }

private:
  std::filesystem::path where_;
  bool mounted_ = false;
};

/// Acts as a person without privileges for as long as it lives; as ourselves when we are one.
class AsPlainPerson {
public:
  AsPlainPerson() : self_(::geteuid()) {
    if (self_ == 0)
      switched_ = ::seteuid(nobody) == 0;
  }
  AsPlainPerson(const AsPlainPerson&) = delete;
  AsPlainPerson& operator=(const AsPlainPerson&) = delete;
  ~AsPlainPerson() {
    if (switched_)
      static_cast<void>(!::seteuid(self_));
  }
  /// For a child process, which has nothing to come back to.
  [[nodiscard]] static bool becomeForGood() { return ::setresuid(nobody, nobody, nobody) == 0; }
  static void give(const std::filesystem::path& path) {
    if (::geteuid() == 0)
      static_cast<void>(!::lchown(path.c_str(), nobody, nobody));
  }

private:
  static constexpr uid_t nobody = 65534;
  uid_t self_;
  bool switched_ = false;
};

inline void write(const std::filesystem::path& path, const std::string& text) {
  std::ofstream(path, std::ios::binary) << text;
}

inline std::string read(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

enum class Compare { contents, everything };

/// All that stands in a folder: for each path what kind it is, its mode, times, contents or target,
/// and (`everything`) whether it is the very same file.
inline std::map<std::string, std::string> listing(const std::filesystem::path& folder,
                                                  Compare compare = Compare::everything) {
  std::map<std::string, std::string> result;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
    struct stat status = {};
    ::lstat(entry.path().c_str(), &status);
    std::string line = std::to_string(status.st_mode) + " " +
                       std::to_string(status.st_mtim.tv_sec) + "." +
                       std::to_string(status.st_mtim.tv_nsec) + " ";
    if (compare == Compare::everything)
      line += std::to_string(status.st_ino) + " ";
    if (entry.is_symlink())
      line += std::filesystem::read_symlink(entry.path()).string();
    else if (entry.is_regular_file())
      line += read(entry.path());
    result[std::filesystem::relative(entry.path(), folder).string()] = line;
  }
  return result;
}

} // namespace tavrel
