#pragma once

#include "platform/Workspace.h"

#include <optional>
#include <string>
#include <vector>

namespace tavrel {

/// Moves or copies the `names` in the source folder into the destination folder, all or nothing;
/// symbolic links, pipes, sockets and devices as what they are. Nothing is overwritten, not even
/// what appears meanwhile. A copy is prepared in a hidden folder in the destination, and a move
/// between file systems removes its originals only when every copy is in place, on the disk and
/// still like its original. Nothing when it was done, else one line that says why it was not, or
/// which hidden folder is left.
///
/// Refused as a whole: no names at all, a name twice, a name with a slash, "." and "..", a name
/// that is missing at the source or there at the destination, a folder into itself or below itself.
/// Where what was begun cannot be undone (its old place was taken meanwhile), the line says where
/// the file is now. The hidden folders are written down in a journal, a folder, for a program that
/// is killed (`finishInterruptedTransfers`).
[[nodiscard]] std::optional<std::string>
transferFiles(FileOperation operation, const std::string& source, const std::string& destination,
              const std::vector<std::string>& names, const std::string& journal = {});

} // namespace tavrel
