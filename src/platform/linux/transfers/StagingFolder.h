#pragma once

#include "platform/linux/transfers/DirectoryTree.h"

namespace tavrel {

/// A hidden folder inside another one, where an operation prepares what it will put in place, or
/// keeps what it has taken away. What is in it is removed with it unless `keep` was called.
class StagingFolder {
public:
  /// Makes the folder; `isOpen` tells whether that went well.
  explicit StagingFolder(int parent);
  StagingFolder(const StagingFolder&) = delete;
  StagingFolder& operator=(const StagingFolder&) = delete;
  ~StagingFolder();

  [[nodiscard]] bool isOpen() const { return folder_.isOpen(); }
  [[nodiscard]] int folder() const { return folder_.get(); }
  [[nodiscard]] const std::string& name() const { return name_; }

  /// Leaves the folder behind with what is in it, because that could be put nowhere else.
  void keep() { name_.clear(); }

private:
  int parent_;
  std::string name_;
  FileDescriptor folder_;
};

} // namespace tavrel
