#pragma once

#include "platform/Files.h"
#include "platform/linux/files/FolderListings.h"
#include "platform/linux/files/HiddenNames.h"
#include "platform/linux/files/SymbolicLinks.h"

namespace tavrel {

/// The files of this machine. Aliases are desktop entries of the type Link that end in ".desktop".
/// Invisible are names that begin with a full stop, backups ("name~") and the names that a folder
/// lists in its ".hidden", as file managers have it.
class LinuxFiles final : public Files {
public:
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
  std::string homeDirectory() override;

private:
  FolderListings folderListings_{std::chrono::seconds(1)};
  HiddenNames hiddenNames_;
  SymbolicLinks symbolicLinks_;
};

} // namespace tavrel
