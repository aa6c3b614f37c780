#include "platform/linux/files/LinuxFiles.h"

#include "base/PathString.h"
#include "base/Url.h"
#include "platform/linux/files/FileBookmark.h"
#include "platform/linux/files/ItemKind.h"
#include "platform/linux/files/LinkEntry.h"
#include "platform/linux/files/MountHealth.h"
#include "platform/linux/installation/ThisInstallation.h"
#include "platform/linux/system/UserFolders.h"

#include <dirent.h>
#include <memory>
#include <set>
#include <sys/stat.h>

namespace tavrel {

namespace {

std::uint32_t flagsOf(ItemKind kind) {
  switch (kind) {
  case ItemKind::folder:
    return itemFlag::container;
  case ItemKind::package:
    return itemFlag::container | itemFlag::package;
  case ItemKind::applicationBundle:
    return itemFlag::container | itemFlag::package | itemFlag::nativeApplication;
  case ItemKind::program:
    return itemFlag::plainFile | itemFlag::nativeApplication;
  case ItemKind::alias:
    return itemFlag::plainFile | itemFlag::aliasFile;
  case ItemKind::symlink:
    return itemFlag::symlink;
  case ItemKind::plainFile:
  case ItemKind::script:
    break;
  }
  return itemFlag::plainFile;
}

std::optional<std::string> entryName(const std::string& path) {
  const auto entry = hasEntryEnding(path) ? loadDesktopEntry(path) : std::nullopt;
  const std::string name = entry ? entry->name(messagesLocale()) : std::string();
  return name.empty() ? std::nullopt : std::optional(name);
}

bool isApplicationFolder(const std::string& path) {
  const auto status =
      pathExtension(path) == "app" ? fileStatusNow(path, FinalLink::follow) : std::nullopt;
  return status && S_ISDIR(status->mode);
}

std::string displayNameNow(const std::string& path) {
  if (auto name = entryName(path))
    return *std::move(name);
  const std::string name = lastPathComponent(path);
  return isApplicationFolder(path) ? deletingPathExtension(name) : name;
}

std::optional<std::string> aliasTargetNow(const std::string& path) {
  const auto entry = loadDesktopEntry(path);
  return entry ? linkTarget(*entry) : std::nullopt;
}

std::optional<std::string> aliasTarget(const std::string& path) {
  if (!hasEntryEnding(path))
    return std::nullopt;
  return askWithTimeout(path, FinalLink::follow, std::optional<std::string>(),
                        [path] { return aliasTargetNow(path); });
}

FileKind kindNow(const std::string& path) {
  const auto status = fileStatusNow(path, FinalLink::follow);
  if (!status)
    return FileKind::none;
  if (!S_ISDIR(status->mode))
    return FileKind::plain;
  return isPackage(path) ? FileKind::package : FileKind::directory;
}

std::vector<std::string> namesNow(const std::string& path) {
  std::vector<std::string> names;
  const std::unique_ptr<DIR, int (*)(DIR*)> folder(::opendir(path.c_str()), ::closedir);
  while (const dirent* entry = folder ? ::readdir(folder.get()) : nullptr) {
    const std::string_view name = entry->d_name;
    if (name != "." && name != "..")
      names.emplace_back(name);
  }
  return names;
}

std::optional<ItemKind> itemKindNow(const std::string& path, FinalLink link) {
  const auto status = fileStatusNow(path, link);
  return status ? std::optional(itemKind(path, *status)) : std::nullopt;
}

} // namespace

bool LinuxFiles::exists(const std::string& path) {
  if (const auto place = componentLocation(path))
    return fileStatus(appendingPathComponent(place->folder, place->relativePath), FinalLink::follow)
        .has_value();
  return fileStatus(path, FinalLink::follow).has_value();
}

FileKind LinuxFiles::kind(const std::string& path) {
  return askWithTimeout(path, FinalLink::follow, FileKind::none, [path] { return kindNow(path); });
}

std::vector<std::string> LinuxFiles::list(const std::string& path) {
  if (path.find('\0') != std::string::npos)
    return {};
  return askWithTimeout(path, FinalLink::follow, std::vector<std::string>(),
                        [path] { return namesNow(path); });
}

/// Only names decide what is invisible here, so that it does not matter where a link leads.
std::vector<ListedFile> LinuxFiles::browse(const std::string& path, FinalLink) {
  return folderListings_.browse(path);
}

std::string LinuxFiles::displayName(const std::string& path) {
  if (!hasEntryEnding(path) && pathExtension(path) != "app")
    return lastPathComponent(path);
  return askWithTimeout(path, FinalLink::follow, lastPathComponent(path),
                        [path] { return displayNameNow(path); });
}

std::string LinuxFiles::resolveSymlinks(const std::string& path) {
  std::string expanded = path.starts_with('~') ? expandingTilde(path, homeDirectory()) : path;
  return symbolicLinks_.resolved(std::move(expanded));
}

std::optional<std::string> LinuxFiles::resolveAlias(const std::string& path) {
  std::set<std::string> seen{path};
  auto target = aliasTarget(path);
  while (target) {
    auto next = aliasTarget(*target);
    if (!next)
      return exists(*target) ? target : std::nullopt;
    if (!seen.insert(*target).second)
      return std::nullopt;
    target = std::move(next);
  }
  return std::nullopt;
}

std::optional<ItemInformation> LinuxFiles::information(const std::string& path, FinalLink link) {
  const auto mount = doubtfulMountOf(path, link); // without a copy of the path where there is none
  const auto kind = mount ? askAt(*mount, std::optional<ItemKind>(),
                                  [path, link] { return itemKindNow(path, link); })
                          : itemKindNow(path, link);
  if (!kind)
    return std::nullopt;
  const std::uint32_t invisible = hiddenNames_.hides(path) ? itemFlag::invisible : 0;
  return ItemInformation{*kind == ItemKind::script ? scriptTypeCode : 0,
                         flagsOf(*kind) | invisible};
}

std::optional<Bytes> LinuxFiles::bookmark(const std::string& path) {
  const auto identity = path.starts_with('/') ? fileIdentity(path) : std::nullopt;
  return identity ? std::optional(bookmarkData({*identity, path})) : std::nullopt;
}

/// Resolving never asks the user and never mounts here, so that both ways are the same.
std::optional<std::string> LinuxFiles::resolveBookmark(const Bytes& bookmark, BookmarkResolution) {
  const auto decoded = bookmarkFromData(bookmark);
  const auto path = decoded ? findBookmarked(*decoded, userFolders()) : std::nullopt;
  if (!path)
    return std::nullopt;
  const bool plain = kind(*path) == FileKind::plain;
  return fileUrlOfPath(*path, plain ? PathIs::file : PathIs::directory);
}

/// This desktop has no alias records: a bookmark serves as one.
std::optional<std::string> LinuxFiles::resolveAliasRecord(const Bytes& record, AliasResolution) {
  const auto decoded = bookmarkFromData(record);
  return decoded ? findBookmarked(*decoded, userFolders()) : std::nullopt;
}

std::string LinuxFiles::homeDirectory() {
  return homeFolder();
}

} // namespace tavrel
