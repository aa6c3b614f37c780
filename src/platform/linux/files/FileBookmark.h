#pragma once

#include "base/PropertyList.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tavrel {

/// What distinguishes a file from all others, after a restart of the machine, too.
struct BookmarkedIdentity {
  std::uint64_t device = 0;
  std::uint64_t inode = 0;
  std::int64_t birth = 0; ///< nanoseconds since 1970; 0 where the file system keeps none
};

/// Whether both are one file. Device numbers may change when the machine restarts, so that they are
/// compared only where there is no birth time.
[[nodiscard]] bool sameFile(const BookmarkedIdentity& a, const BookmarkedIdentity& b);

/// The identity of what is at a path; a symbolic link at its end is not followed. Nothing when
/// nothing is there.
[[nodiscard]] std::optional<BookmarkedIdentity> fileIdentity(const std::string& path);

struct FileBookmark {
  BookmarkedIdentity identity;
  std::string path;
};

/// Text: a line "tavrel bookmark 1", a line of device, inode and birth time in decimal, the path.
[[nodiscard]] Bytes bookmarkData(const FileBookmark& bookmark);

/// Nothing for data that is no bookmark.
[[nodiscard]] std::optional<FileBookmark> bookmarkFromData(const Bytes& data);

/// The path the file is at now; of a file without identity, which was not there when the bookmark
/// was made, its path if it is there now. When another file stands at its old path that one is
/// taken only after the search: many editors save by putting a new file in the place of the old.
/// The search goes through what is left of the old folder, its parent and the folders given, three
/// levels deep, hidden folders, symbolic links and mounted file systems left out, and ends after
/// 20,000 names.
[[nodiscard]] std::optional<std::string> findBookmarked(const FileBookmark& bookmark,
                                                        const std::vector<std::string>& folders);

} // namespace tavrel
