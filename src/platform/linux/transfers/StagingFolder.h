#pragma once

#include "platform/linux/transfers/DirectoryTree.h"

namespace tavrel {

/// A hidden folder inside another one, for copies that are not complete yet and for originals that
/// are to be removed. It is removed with everything in it, unless `keep` was called.
class StagingFolder {
public:
  /// Makes the folder; when that fails, `isOpen` is false.
  explicit StagingFolder(int parent);
  StagingFolder(const StagingFolder&) = delete;
  StagingFolder& operator=(const StagingFolder&) = delete;
  ~StagingFolder();

  [[nodiscard]] bool isOpen() const { return folder_.isOpen(); }
  [[nodiscard]] int folder() const { return folder_.get(); }
  [[nodiscard]] const std::string& name() const { return name_; }

  /// Does not remove the folder: it holds something that could not be put back.
  void keep() { name_.clear(); }

private:
  int parent_;
  std::string name_;
  FileDescriptor folder_;
};

} // namespace tavrel
