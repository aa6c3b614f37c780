#include "menu/PathHelpers.h"

#include "base/PathString.h"
#include "base/Url.h"
#include "controller/SystemVersion.h"
#include "menu/ItemRecord.h"
#include "platform/Files.h"
#include "platform/Platform.h"

namespace tavrel {

namespace {

std::string standardized(const std::string& path) {
  Files& files = platform().files;
  const std::string expanded = expandingTilde(path, files.homeDirectory());
  return removingDotSegments(expanded);
}

// "/~/x" stands for a place in the home folder. The result must be absolute: "/~name/x", in the
// home of another user, which is not known, is left as it is.
std::string fromHome(const std::string& path) {
  if (!path.starts_with("/~"))
    return path;
  const std::string expanded =
      expandingTilde(std::string_view(path).substr(1), platform().files.homeDirectory());
  return expanded.starts_with('~') ? path : expanded;
}

std::optional<std::string> bookmarkedPath(const PropertyList& record) {
  const Bytes* bookmark = record.dataFor(TVR_MenuItemBookmark);
  if (!bookmark || !hasBookmarks())
    return std::nullopt;
  const auto url =
      platform().files.resolveBookmark(*bookmark, BookmarkResolution::withoutInterface);
  return url ? pathOfUrl(*url) : std::nullopt;
}

std::string typeFromFlags(std::uint32_t flags) {
  constexpr std::uint32_t application = itemFlag::nativeApplication | itemFlag::classicApplication |
                                        itemFlag::prefersNative | itemFlag::prefersClassic |
                                        itemFlag::scriptableApplication;
  if (flags & application)
    return itemTypeName(ItemType::application);
  if (flags & itemFlag::plainFile)
    return itemTypeName(ItemType::documentFile);
  if (flags & itemFlag::package)
    return itemTypeName(ItemType::package);
  return flags & itemFlag::container ? itemTypeName(ItemType::folder) : std::string();
}

} // namespace

std::string resolvedSymlinks(const std::string& path) {
  const std::string resolved = platform().files.resolveSymlinks(path);
  if (resolved.empty())
    return path;
  const std::string standard = standardized(resolved);
  return standard.empty() ? resolved : standard;
}

std::string resolveAliasFile(const std::string& path) {
  return platform().files.resolveAlias(path).value_or(path);
}

std::string cleanedUpPath(const std::string& path) {
  return resolveAliasFile(resolvedSymlinks(path));
}

DirectoryKind isDirectory(const std::string& path, CleanPath cleanPath) {
  return directoryKind(
      platform().files.kind(cleanPath == CleanPath::yes ? cleanedUpPath(path) : path));
}

DirectoryKind directoryKind(FileKind kind) {
  if (kind == FileKind::package)
    return DirectoryKind::package;
  return kind == FileKind::directory ? DirectoryKind::folder : DirectoryKind::none;
}

std::string itemTypeFromPath(const std::string& path) {
  const ItemInformation information =
      platform().files.information(path, FinalLink::follow).value_or(ItemInformation{});
  if (information.typeCode == scriptTypeCode || pathExtension(path) == "scpt")
    return itemTypeName(ItemType::appleScript);
  return typeFromFlags(information.flags);
}

std::optional<std::string> fullPathForItem(const PropertyList& record) {
  const std::string* url = record.stringFor(TVR_MenuItemURL);
  auto path = url ? pathOfUrl(*url) : std::nullopt;
  if (path)
    path = fromHome(*path);
  if (path && platform().files.exists(*path))
    return path;
  if (auto moved = bookmarkedPath(record))
    return moved;
  return path;
}

std::string fileUrlForPath(const std::string& path) {
  const bool directory = isDirectory(path, CleanPath::no) != DirectoryKind::none;
  return fileUrlOfPath(path, directory ? PathIs::directory : PathIs::file);
}

} // namespace tavrel
