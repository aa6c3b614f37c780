#pragma once

#include "platform/Files.h"

namespace tavrel {

/// The files of this machine, as the file system and the launch services describe them.
class MacFiles final : public Files {
public:
  bool exists(const std::string& path) override;
  FileKind kind(const std::string& path) override;
  std::vector<std::string> list(const std::string& path) override;
  std::vector<ListedFile> browse(const std::string& path, FinalLink link) override;
  std::string displayName(const std::string& path) override;
  /// Leaves out a leading /private where the path leads to the same without it.
  std::string resolveSymlinks(const std::string& path) override;
  std::optional<std::string> resolveAlias(const std::string& path) override;
  std::optional<ItemInformation> information(const std::string& path, FinalLink link) override;
  std::optional<Bytes> bookmark(const std::string& path) override;
  std::optional<std::string> resolveBookmark(const Bytes& bookmark,
                                             BookmarkResolution how) override;
  /// A record that an old system wrote is read as bookmark data first.
  std::optional<std::string> resolveAliasRecord(const Bytes& record, AliasResolution how) override;
  std::string homeDirectory() override;
};

} // namespace tavrel
