#pragma once

#include "platform/linux/transfers/DirectoryTree.h"
#include "platform/linux/transfers/TransferJournal.h"

#include <optional>

namespace tavrel {

/// A hidden folder inside another one, for copies that are not complete yet and for originals that
/// are to be removed. It is removed at the end.
class StagingFolder {
public:
  /// Makes the folder in an open one and writes it down in a journal.
  StagingFolder(int parent, const std::string& parentPath, Staged staged,
                const std::string& journal);
  StagingFolder(const StagingFolder&) = delete;
  StagingFolder& operator=(const StagingFolder&) = delete;
  ~StagingFolder() { (void)remove(); }

  /// Why it could not be made.
  [[nodiscard]] std::error_code error() const { return error_; }
  [[nodiscard]] int folder() const { return folder_.get(); }
  [[nodiscard]] const std::string& name() const { return name_; }

  /// No error when it is gone.
  [[nodiscard]] std::error_code remove();

private:
  void make(const std::string& parentPath, const std::string& journal);

  int parent_;
  Staged staged_;
  std::optional<JournalEntry> entry_;
  std::string name_; ///< empty: there is none
  FileDescriptor folder_;
  std::error_code error_;
};

} // namespace tavrel
