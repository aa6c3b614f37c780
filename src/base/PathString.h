#pragma once

#include <string>
#include <string_view>

namespace tavrel {

/// Operations on POSIX path strings as strings: the file system is not asked.

/// "/a/b.txt/" gives "b.txt", "/" gives "/", "" gives "".
[[nodiscard]] std::string lastPathComponent(std::string_view path);

/// The ending without its full stop: "/a/x.tar.gz" gives "gz", "/a/.hidden" gives "".
[[nodiscard]] std::string pathExtension(std::string_view path);

/// "/a/b.txt/" gives "/a/b"; a name that only begins with a full stop keeps it.
[[nodiscard]] std::string deletingPathExtension(std::string_view path);

/// The folder a path stands in: "/a/b" gives "/a", "/a" gives "/", "a" gives "".
[[nodiscard]] std::string deletingLastPathComponent(std::string_view path);

/// One separator between the two, whatever the folder ends with.
[[nodiscard]] std::string appendingPathComponent(std::string_view folder, std::string_view name);

/// Separators squeezed, the trailing one dropped, "." and ".." removed; ".." above the root of an
/// absolute path is dropped, a leading ".." of a relative one is kept.
[[nodiscard]] std::string removingDotSegments(std::string_view path);

/// A leading "~" or "~/" replaced by the home folder; "~name" is left alone.
[[nodiscard]] std::string expandingTilde(std::string_view path, std::string_view home);

/// Whether a component of the path is "..".
[[nodiscard]] bool hasParentSegment(std::string_view path);

} // namespace tavrel
