#pragma once

#include "platform/linux/transfers/DirectoryTree.h"

namespace tavrel {

/// What a staging folder holds, and so what may go with it.
enum class Staged {
  copies,    ///< not complete, or taken away again: they are removed
  originals, ///< perhaps the only ones: the folder goes only when it is empty
};

/// A hidden folder inside another one, for copies that are not complete yet and for originals that
/// are to be removed. It is removed at the end.
class StagingFolder {
public:
  /// Makes the folder; when that fails, `isOpen` is false.
  StagingFolder(int parent, Staged staged);
  StagingFolder(const StagingFolder&) = delete;
  StagingFolder& operator=(const StagingFolder&) = delete;
  ~StagingFolder() { (void)remove(); }

  [[nodiscard]] bool isOpen() const { return folder_.isOpen(); }
  [[nodiscard]] int folder() const { return folder_.get(); }
  [[nodiscard]] const std::string& name() const { return name_; }

  /// No error when it is gone.
  [[nodiscard]] std::error_code remove();

private:
  int parent_;
  Staged staged_;
  std::string name_; ///< empty: there is none
  FileDescriptor folder_;
};

} // namespace tavrel
