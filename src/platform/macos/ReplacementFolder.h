#pragma once

#include <string>

namespace tavrel {

/// A private folder on the volume of a file or folder, for what is to take a place there once it is
/// whole. Removed with what is left in it.
class ReplacementFolder {
public:
  explicit ReplacementFolder(const std::string& near);
  ReplacementFolder(const ReplacementFolder&) = delete;
  ReplacementFolder& operator=(const ReplacementFolder&) = delete;
  ~ReplacementFolder();

  /// Copies a file, or a folder with everything in it, with all that belongs to it. The path of the
  /// copy; empty when there is no folder or not everything could be copied.
  [[nodiscard]] std::string copyOf(const std::string& path) const;

private:
  std::string path_; ///< empty: none could be made
};

} // namespace tavrel
