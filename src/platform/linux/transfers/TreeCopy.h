#pragma once

#include "platform/linux/transfers/DirectoryTree.h"

#include <map>

namespace tavrel {

/// What a file looked like when it was copied.
struct FileStamp {
  off_t size = 0;
  time_t modifiedSeconds = 0;
  long modifiedNanoseconds = 0;
  friend bool operator==(const FileStamp&, const FileStamp&) = default;
};

/// Copies of whole trees that keep to one another: hard links between them stay hard links, and
/// what was copied is remembered, so that nothing that came later is taken for copied.
class TreeCopy {
public:
  /// Copies go into `destination`; `links`, on the same file system, holds helper names meanwhile.
  TreeCopy(int destination, int links) : destination_(destination), links_(links) {}

  /// Copies what stands under a name in a folder to the same name in the destination.
  [[nodiscard]] std::error_code copy(int folder, const std::string& name);

  /// No error when what stands under a name (wherever it was moved) is still what was copied,
  /// without anything added or changed.
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
