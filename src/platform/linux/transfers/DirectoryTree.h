#pragma once

#include "platform/linux/system/FileDescriptor.h"

#include <string>
#include <sys/stat.h>
#include <vector>

namespace tavrel {

/// What tells one file from all others of a running system.
struct FileIdentity {
  dev_t device = 0;
  ino_t inode = 0;
  // NOLINTNEXTLINE(modernize-use-nullptr): it takes the 0 in generated code for a pointer.
  friend auto operator<=>(const FileIdentity&, const FileIdentity&) = default;
};

[[nodiscard]] inline FileIdentity identityOf(const struct stat& status) {
  return {status.st_dev, status.st_ino};
}

/// The identity of an open file; {0, 0} when it cannot be asked.
[[nodiscard]] FileIdentity identityOf(int descriptor);

/// The names in a folder, in no order, without "." and "..".
[[nodiscard]] std::error_code readNames(int folder, std::vector<std::string>& names);

/// A folder met on a walk, and its place: `opened` is the folder itself, readable.
struct FolderEntry {
  int parent;
  const std::string& name;
  const struct stat& status;
  int opened;
};

/// Told of everything in a tree; the first error ends the walk.
class TreeVisitor {
public:
  virtual ~TreeVisitor() = default;
  /// Before a folder is opened.
  virtual void meetFolder(int /*parent*/, const std::string& /*name*/) {}
  /// Before what is in a folder.
  virtual std::error_code enterFolder(const FolderEntry& /*folder*/) { return {}; }
  /// Anything but a folder; symbolic links are not followed.
  virtual std::error_code visitFile(int parent, const std::string& name,
                                    const struct stat& status) = 0;
  /// After what is in a folder.
  virtual std::error_code leaveFolder(const FolderEntry& folder) = 0;
};

/// Walks what stands under a name in a folder. Neither the depth of the tree nor the length of its
/// paths is limited: every step is relative to an open folder, and only two are open at a time.
[[nodiscard]] std::error_code walkTree(int parent, const std::string& name, TreeVisitor& visitor);

/// Removes what stands under a name in a folder, read-only folders included.
[[nodiscard]] std::error_code removeTree(int parent, const std::string& name);

} // namespace tavrel
