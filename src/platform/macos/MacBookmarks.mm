#import "platform/macos/Conversions.h"
#import "platform/macos/MacFiles.h"

namespace tavrel {

namespace {

NSURL* bookmarkedFile(NSData* bookmark, NSURLBookmarkResolutionOptions options) {
  return [NSURL URLByResolvingBookmarkData:bookmark
                                   options:options
                             relativeToURL:nil
                       bookmarkDataIsStale:nil
                                     error:nil];
}

} // namespace

std::optional<Bytes> MacFiles::bookmark(const std::string& path) {
  NSURL* const file = fileUrl(path);
  NSData* const data = [file bookmarkDataWithOptions:0
                      includingResourceValuesForKeys:nil
                                       relativeToURL:nil
                                               error:nil];
  return data ? std::optional(bytesOf(data)) : std::nullopt;
}

std::optional<std::string> MacFiles::resolveBookmark(const Bytes& bookmark,
                                                     BookmarkResolution how) {
  static_assert(static_cast<NSUInteger>(BookmarkResolution::withoutInterface) ==
                NSURLBookmarkResolutionWithoutUI);
  static_assert(static_cast<NSUInteger>(BookmarkResolution::withoutMounting) ==
                NSURLBookmarkResolutionWithoutMounting);
  NSURL* const url = bookmarkedFile(nsData(bookmark), static_cast<NSUInteger>(how));
  return url ? std::optional(stringOf(url.absoluteString)) : std::nullopt;
}

std::optional<std::string> MacFiles::resolveAliasRecord(const Bytes& record, AliasResolution how) {
  if (record.empty())
    return std::nullopt;
  NSData* const alias = nsData(record);
// Deprecated as records are, and the one way from a record to a bookmark.
#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Wdeprecated-declarations"
  NSData* const bookmark =
      CFBridgingRelease(CFURLCreateBookmarkDataFromAliasRecord(nullptr, (__bridge CFDataRef)alias));
#pragma clang diagnostic pop
  const NSURLBookmarkResolutionOptions quiet =
      NSURLBookmarkResolutionWithoutUI | NSURLBookmarkResolutionWithoutMounting;
  NSURL* const file =
      bookmark ? bookmarkedFile(bookmark, how == AliasResolution::withoutInterface ? quiet : 0)
               : nil;
  return file.path ? std::optional(stringOf(file.path)) : std::nullopt;
}

} // namespace tavrel
