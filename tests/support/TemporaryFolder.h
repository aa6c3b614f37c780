#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace tavrel {

/// A folder of the test's own, gone with it.
class TemporaryFolder {
public:
  TemporaryFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "tavrel-test-XXXXXX").string();
    path_ = ::mkdtemp(pattern.data());
  }
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  [[nodiscard]] std::string path() const { return path_; }
  [[nodiscard]] std::string path(const std::string& name) const { return path_ + "/" + name; }

  std::string write(const std::string& name, const std::string& contents) const {
    std::ofstream(path(name), std::ios::binary) << contents;
    return path(name);
  }
  [[nodiscard]] std::string read(const std::string& name) const {
    std::ifstream file(path(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

private:
  std::string path_;
};

} // namespace tavrel
