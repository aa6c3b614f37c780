#import "platform/macos/MacFiles.h"

#include "base/PathString.h"
#include "platform/common/BoundedListing.h"
#include "platform/common/ItemFacts.h"
#import "platform/macos/Conversions.h"

#include <cstdlib>
#include <memory>
#include <set>

namespace tavrel {

namespace {

constexpr std::chrono::milliseconds patience{1000};

bool fact(NSURL* url, NSURLResourceKey key) {
  NSNumber* value = nil;
  return [url getResourceValue:&value forKey:key error:nil] && value.boolValue;
}

ItemFacts factsOf(NSURL* url) {
  return {.isDirectory = fact(url, NSURLIsDirectoryKey),
          .isPackage = fact(url, NSURLIsPackageKey),
          .isSymlink = fact(url, NSURLIsSymbolicLinkKey),
          .isAlias = fact(url, NSURLIsAliasFileKey),
          .isHidden = fact(url, NSURLIsHiddenKey),
          .isApplication = fact(url, NSURLIsApplicationKey),
          .isScriptable = fact(url, NSURLApplicationIsScriptableKey)};
}

/// Nothing when no file is there.
std::optional<std::string> realPathOf(const std::string& path) {
  const std::unique_ptr<char, void (*)(void*)> real(
      fileUrl(path) ? ::realpath(path.c_str(), nullptr) : nullptr, std::free);
  return real ? std::optional(std::string(real.get())) : std::nullopt;
}

/// What is there at the end of the links; nil when nothing is.
NSURL* linkedFile(const std::string& path) {
  const auto real = realPathOf(path);
  return real ? fileUrl(*real) : nil;
}

// Reads no more than needed, because it is called for every file of a long menu.
bool holdsAlias(NSURL* url) {
  return isAliasFile(
      {.isSymlink = fact(url, NSURLIsSymbolicLinkKey), .isAlias = fact(url, NSURLIsAliasFileKey)});
}

/// One step; nil when the file is no alias.
NSURL* aliasTargetOf(NSURL* url) {
  if (!holdsAlias(url))
    return nil;
  return [NSURL URLByResolvingAliasFileAtURL:url
                                     options:NSURLBookmarkResolutionWithoutUI |
                                             NSURLBookmarkResolutionWithoutMounting
                                       error:nil];
}

ListedFile listedFile(const std::string& folder, const std::string& name, FinalLink link) {
  MacFiles files;
  const std::string path = appendingPathComponent(folder, name);
  const auto told = files.information(path, link);
  return {name, files.displayName(path), told && (told->flags & itemFlag::invisible) != 0,
          files.kind(files.resolveAlias(path).value_or(path))};
}

} // namespace

bool MacFiles::exists(const std::string& path) {
  return linkedFile(path) != nil;
}

FileKind MacFiles::kind(const std::string& path) {
  NSURL* const file = linkedFile(path);
  if (!file)
    return FileKind::none;
  if (!fact(file, NSURLIsDirectoryKey))
    return FileKind::plain;
  return fact(file, NSURLIsPackageKey) ? FileKind::package : FileKind::directory;
}

std::vector<std::string> MacFiles::list(const std::string& path) {
  NSURL* const folder = fileUrl(path);
  if (!folder)
    return {};
  return stringsOf([NSFileManager.defaultManager contentsOfDirectoryAtPath:folder.path error:nil]);
}

std::vector<ListedFile> MacFiles::browse(const std::string& path, FinalLink link) {
  const auto names = [path] {
    @autoreleasepool {
      return MacFiles().list(path);
    }
  };
  const auto look = [path, link](const std::string& name) {
    @autoreleasepool {
      return listedFile(path, name, link);
    }
  };
  return listWithin({names, look}, patience);
}

std::string MacFiles::displayName(const std::string& path) {
  NSURL* const file = fileUrl(path);
  const std::string name =
      file ? stringOf([NSFileManager.defaultManager displayNameAtPath:file.path]) : std::string();
  return name.empty() ? lastPathComponent(path) : name;
}

std::string MacFiles::resolveSymlinks(const std::string& path) {
  const std::string expanded = path.starts_with('~') ? expandingTilde(path, homeDirectory()) : path;
  const auto real = realPathOf(expanded);
  return real ? stringOf(nsString(*real).stringByResolvingSymlinksInPath) : expanded;
}

std::optional<std::string> MacFiles::resolveAlias(const std::string& path) {
  std::set<std::string> seen{path};
  NSURL* target = aliasTargetOf(fileUrl(path));
  while (NSURL* next = aliasTargetOf(target)) {
    if (!seen.insert(stringOf(target.path)).second)
      return std::nullopt;
    target = next;
  }
  const bool isEnd =
      target && !holdsAlias(target) && [NSFileManager.defaultManager fileExistsAtPath:target.path];
  return isEnd ? std::optional(stringOf(target.path)) : std::nullopt;
}

// The attributes are those of the link itself, where it leads nowhere, too.
std::optional<ItemInformation> MacFiles::information(const std::string& path, FinalLink link) {
  NSURL* const file = link == FinalLink::follow ? linkedFile(path) : fileUrl(path);
  NSDictionary* const attributes =
      file ? [NSFileManager.defaultManager attributesOfItemAtPath:file.path error:nil] : nil;
  if (!attributes)
    return std::nullopt;
  return ItemInformation{static_cast<std::uint32_t>(attributes.fileHFSTypeCode),
                         itemFlags(factsOf(file))};
}

std::string MacFiles::homeDirectory() {
  return stringOf(NSHomeDirectory());
}

} // namespace tavrel
