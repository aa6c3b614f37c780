#pragma once

#include "platform/linux/transfers/DirectoryTree.h"

#include <map>

namespace tavrel {

/// Size and time of a file when it was copied.
struct FileStamp {
  off_t size = 0;
  time_t modifiedSeconds = 0;
  long modifiedNanoseconds = 0;
  friend bool operator==(const FileStamp&, const FileStamp&) = default;
};

/// Copies several trees: hard links between them stay hard links, and it is remembered what was
/// copied, so that a file that was added or changed later is not removed as copied.
class TreeCopy {
public:
  /// Copies go into `destination`; `links`, on the same file system, holds temporary hard links
  /// meanwhile.
  TreeCopy(int destination, int links) : destination_(destination), links_(links) {}

  /// Copies what is under a name in a folder to the same name in the destination.
  [[nodiscard]] std::error_code copy(int folder, const std::string& name);

  /// No error when what is under a name, perhaps moved since, is still what was copied, without
  /// anything added or changed.
  [[nodiscard]] std::error_code confirmUnchanged(int folder, const std::string& name) const;

private:
  class Copier;
  class Confirmer;
  int destination_;
  int links_;
  std::map<FileIdentity, FileStamp> copied_;
};

/// No error when this process may remove everything under a name: asked before a copy is made that
/// is only of use when its original goes. File systems mounted inside are never removed from.
[[nodiscard]] std::error_code confirmRemovable(int parent, const std::string& name);

} // namespace tavrel
