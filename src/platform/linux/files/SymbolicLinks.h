#pragma once

#include <chrono>
#include <string>
#include <string_view>

namespace tavrel {

/// Resolves symbolic links. That a folder has none on the way to it holds for a tenth of a second,
/// so that the files of one folder cost one short question each; should a link be put there
/// meanwhile, the path comes back with it, and still leads to the file.
class SymbolicLinks {
public:
  /// The path with every symbolic link in it resolved; as it stands when there is none, or when it
  /// leads nowhere.
  [[nodiscard]] std::string resolved(std::string path);

private:
  [[nodiscard]] bool isWithoutLinks(const std::string& path);
  [[nodiscard]] bool isFolderWithoutLinks(std::string_view folder);

  std::string folder_; ///< the last one found to be without links
  std::chrono::steady_clock::time_point checked_;
};

} // namespace tavrel
