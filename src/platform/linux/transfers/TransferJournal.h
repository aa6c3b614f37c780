#pragma once

#include "platform/linux/system/FileDescriptor.h"

#include <string>
#include <vector>

namespace tavrel {

/// What a hidden folder holds, and so what may go with it.
enum class Staged {
  copies,    ///< not complete, or taken away again: they are removed
  originals, ///< perhaps the only ones: the folder goes only when it is empty
};

/// Written down where a hidden folder is, from before it is made until it is gone, in a file of its
/// name; locked while the program lives that made it.
class JournalEntry {
public:
  /// `journal` is a folder, made if need be; where it is empty or cannot be written to, nothing is
  /// written down.
  JournalEntry(const std::string& journal, const std::string& name, Staged staged,
               const std::string& parent);
  /// The hidden folder is gone.
  void strike();

private:
  std::string path_;
  FileDescriptor file_;
};

/// The user's journal.
[[nodiscard]] std::string transferJournal();

/// Finishes what was under way when the program was killed: copies that are not complete are
/// removed, originals go back to their places. One line for each thing that was found, or that is
/// hidden still.
[[nodiscard]] std::vector<std::string> finishInterruptedTransfers(const std::string& journal);

} // namespace tavrel
