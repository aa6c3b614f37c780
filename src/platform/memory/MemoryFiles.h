#pragma once

#include "platform/Files.h"

#include <map>
#include <set>
#include <utility>

namespace tavrel {

/// A small file system of plain values.
class MemoryFiles final : public Files {
public:
  struct Node {
    enum class Kind { file, folder, package, application, script, symlink, alias };
    Kind kind = Kind::file;
    std::uint64_t identity = 0;         ///< kept when the file is moved
    std::string target;                 ///< of a symlink or an alias
    std::optional<std::uint32_t> flags; ///< in place of those of the kind
    std::optional<std::uint32_t> typeCode;
    std::optional<std::string> displayName;
    bool invisible = false;
    bool informationFails = false;
    bool listingFails = false;
  };

  /// What tests set and read. Paths are absolute and need no cleaning.
  struct Control {
    std::string home = "/Users/me";
    /// By path without a trailing slash; "/" and the home folder are there from the start.
    std::map<std::string, Node, std::less<>> nodes;
    /// Bookmark data that lead to a URL of any kind, whatever files there are.
    std::map<Bytes, std::string> bookmarkUrls;
    /// Alias records and the paths they lead to; every other data is junk.
    std::map<Bytes, std::string> aliasRecords;

    std::vector<std::pair<std::string, FinalLink>> informationAsked;
    std::vector<std::string> listed;
    std::vector<BookmarkResolution> bookmarksResolved;
    std::vector<AliasResolution> aliasRecordsResolved;

    Control();
    /// Each adds what stands at the path, replacing what stood there; folders on the way are made.
    void addFile(const std::string& path);
    void addFolder(const std::string& path);
    void addPackage(const std::string& path);
    /// A package with the native application flag.
    void addApplication(const std::string& path);
    /// A plain file with the type code of compiled scripts.
    void addScript(const std::string& path);
    /// The target may be missing or a loop.
    void addSymlink(const std::string& path, const std::string& target);
    void addAlias(const std::string& path, const std::string& target);
    Node& add(const std::string& path, Node::Kind kind);

    /// The thing at a path, links not followed; throws when nothing is there.
    Node& at(const std::string& path) { return nodes.at(path); }
    /// With everything inside.
    void remove(const std::string& path);
    /// With everything inside; bookmarks follow.
    void move(const std::string& from, const std::string& to);

  private:
    std::uint64_t lastIdentity_ = 0;
  };
  Control control;

  bool exists(const std::string& path) override;
  FileKind kind(const std::string& path) override;
  std::vector<std::string> list(const std::string& path) override;
  std::vector<ListedFile> browse(const std::string& path, FinalLink link) override;
  std::string displayName(const std::string& path) override;
  std::string resolveSymlinks(const std::string& path) override;
  std::optional<std::string> resolveAlias(const std::string& path) override;
  std::optional<ItemInformation> information(const std::string& path, FinalLink link) override;
  std::optional<Bytes> bookmark(const std::string& path) override;
  std::optional<std::string> resolveBookmark(const Bytes& bookmark,
                                             BookmarkResolution how) override;
  std::optional<std::string> resolveAliasRecord(const Bytes& record, AliasResolution how) override;
  std::string homeDirectory() override { return control.home; }

private:
  using Entry = std::pair<const std::string, Node>;
  /// What stands at a path, links on the way followed; null for nothing and for loops.
  [[nodiscard]] const Entry* find(const std::string& path, FinalLink link) const;
};

} // namespace tavrel
