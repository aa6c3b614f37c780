#pragma once

#include "base/PropertyList.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tavrel {

/// Bits of `ItemInformation::flags`.
namespace itemFlag {
inline constexpr std::uint32_t plainFile = 0x1;
inline constexpr std::uint32_t package = 0x2;
inline constexpr std::uint32_t container = 0x8;
inline constexpr std::uint32_t aliasFile = 0x10;
inline constexpr std::uint32_t symlink = 0x20;
inline constexpr std::uint32_t invisible = 0x40;
inline constexpr std::uint32_t nativeApplication = 0x80;
inline constexpr std::uint32_t classicApplication = 0x100;
inline constexpr std::uint32_t prefersNative = 0x200;
inline constexpr std::uint32_t prefersClassic = 0x400;
inline constexpr std::uint32_t scriptableApplication = 0x800;
} // namespace itemFlag

/// The type code of compiled scripts, 'osas'.
inline constexpr std::uint32_t scriptTypeCode = 0x6F736173;

/// What the desktop knows about a file.
struct ItemInformation {
  std::uint32_t typeCode = 0; ///< four characters, 0 when the file has none
  std::uint32_t flags = 0;    ///< bits of `itemFlag`
};

/// Whether a symbolic link at the end of a path is followed.
enum class FinalLink { follow, keep };

/// What kind of file stands at a path.
enum class FileKind { none, plain, directory, package };

/// A name in a directory, with what browsing asks about each.
struct ListedFile {
  std::string name;
  std::string displayName;         ///< as `Files::displayName` answers for its path
  bool invisible = false;          ///< the flag that `Files::information` answers
  FileKind kind = FileKind::plain; ///< of what symbolic links, then an alias, lead to
};

/// How far resolving a bookmark may go.
enum class BookmarkResolution {
  withoutInterface = 0x100, ///< never asks the user
  withoutMounting = 0x200,  ///< never mounts a volume
};

/// How a classic alias record is resolved.
enum class AliasResolution {
  withoutInterface = 1,    ///< never asks the user, never mounts
  fileIdentifierFirst = 2, ///< the file's identity before its path; may ask, and may mount
};

/// Files and names. Paths are absolute, in UTF-8 (a name that is not UTF-8 travels as its bytes).
/// Nothing here changes a file.
class Files {
public:
  virtual ~Files() = default;

  /// Whether something stands at the path, following symbolic links.
  [[nodiscard]] virtual bool exists(const std::string& path) = 0;

  /// Follows links; `package` for a directory that is shown as one file.
  [[nodiscard]] virtual FileKind kind(const std::string& path) = 0;

  /// The names in a directory, in no order, without "." and ".."; empty when it cannot be read.
  [[nodiscard]] virtual std::vector<std::string> list(const std::string& path) = 0;

  /// The names that `list` answers, each with what the single questions would answer about it
  /// (`link` is for the flag), but quick for a folder of any length. Where a file system does not
  /// answer within about a second, a name that it was asked about is of the kind `none`; and when
  /// the names themselves do not come, there are none.
  [[nodiscard]] virtual std::vector<ListedFile> browse(const std::string& path, FinalLink link) = 0;

  /// The name to show for a path; its last component when there is no better one.
  [[nodiscard]] virtual std::string displayName(const std::string& path) = 0;

  /// The path with every symbolic link resolved and a leading tilde expanded; a path that does
  /// not exist comes back unchanged but for the tilde.
  [[nodiscard]] virtual std::string resolveSymlinks(const std::string& path) = 0;

  /// The target of an alias file, chains followed, never asking the user or mounting anything;
  /// nothing when the path names no alias or the target cannot be had. A loop is no target.
  [[nodiscard]] virtual std::optional<std::string> resolveAlias(const std::string& path) = 0;

  /// Nothing when no file is there or it cannot be asked.
  [[nodiscard]] virtual std::optional<ItemInformation> information(const std::string& path,
                                                                   FinalLink link) = 0;

  /// Data that finds the file again after it was moved; nothing when there is no file.
  [[nodiscard]] virtual std::optional<Bytes> bookmark(const std::string& path) = 0;

  /// The URL a bookmark leads to now; nothing when the file cannot be found or the data is junk.
  [[nodiscard]] virtual std::optional<std::string> resolveBookmark(const Bytes& bookmark,
                                                                   BookmarkResolution how) = 0;

  /// The path that a classic alias record leads to now; nothing when the file cannot be had or the
  /// data is junk.
  [[nodiscard]] virtual std::optional<std::string> resolveAliasRecord(const Bytes& record,
                                                                      AliasResolution how) = 0;

  /// The user's home folder, without a trailing slash.
  [[nodiscard]] virtual std::string homeDirectory() = 0;
};

} // namespace tavrel
