#pragma once

#include "platform/linux/system/FileDescriptor.h"

#include <string>
#include <sys/stat.h>
#include <vector>

namespace tavrel {

/// What distinguishes a file from all others while the machine runs.
struct FileIdentity {
  dev_t device = 0;
  ino_t inode = 0;
  // NOLINTNEXTLINE(modernize-use-nullptr): it takes the 0 in generated code for a pointer.
  friend auto operator<=>(const FileIdentity&, const FileIdentity&) = default;
};

[[nodiscard]] inline FileIdentity identityOf(const struct stat& status) {
  return {status.st_dev, status.st_ino};
}

/// The identity of an open file; {0, 0} when fstat fails.
[[nodiscard]] FileIdentity identityOf(int descriptor);

/// The names in a folder, in no order, without "." and "..".
[[nodiscard]] std::error_code readNames(int folder, std::vector<std::string>& names);

/// A folder during a walk.
struct FolderEntry {
  int parent; ///< an open folder
  const std::string& name;
  const struct stat& status;
  int opened; ///< the folder itself, readable
};

/// Called for everything in a tree; the first error ends the walk.
class TreeVisitor {
public:
  virtual ~TreeVisitor() = default;
  /// Before a folder is opened, which its permissions may forbid.
  virtual void beforeOpeningFolder(int /*parent*/, const std::string& /*name*/) {}
  /// Before the content of a folder is visited.
  virtual std::error_code enterFolder(const FolderEntry& /*folder*/) { return {}; }
  /// For anything but a folder; symbolic links are not followed.
  virtual std::error_code visitFile(int parent, const std::string& name,
                                    const struct stat& status) = 0;
  /// After the content of a folder was visited.
  virtual std::error_code leaveFolder(const FolderEntry& folder) = 0;
};

/// Walks what is under a name in a folder. Neither the depth of the tree nor the length of its
/// paths is limited: every step is relative to an open folder, and only two are open at a time.
[[nodiscard]] std::error_code walkTree(int parent, const std::string& name, TreeVisitor& visitor);

/// Removes what is under a name in a folder, read-only folders included.
[[nodiscard]] std::error_code removeTree(int parent, const std::string& name);

} // namespace tavrel
