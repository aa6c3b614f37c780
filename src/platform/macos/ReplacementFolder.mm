#import "platform/macos/ReplacementFolder.h"

#include "base/PathString.h"
#import "platform/macos/Conversions.h"

namespace tavrel {

ReplacementFolder::ReplacementFolder(const std::string& near) {
  NSURL* const place = fileUrl(near);
  NSURL* const made = place
                          ? [NSFileManager.defaultManager URLForDirectory:NSItemReplacementDirectory
                                                                 inDomain:NSUserDomainMask
                                                        appropriateForURL:place
                                                                   create:YES
                                                                    error:nil]
                          : nil;
  path_ = stringOf(made.path);
}

ReplacementFolder::~ReplacementFolder() {
  if (NSURL* const folder = fileUrl(path_))
    [NSFileManager.defaultManager removeItemAtURL:folder error:nil];
}

std::string ReplacementFolder::copyOf(const std::string& path) const {
  const std::string copy = appendingPathComponent(path_, lastPathComponent(path));
  NSURL* const from = fileUrl(path);
  NSURL* const to = path_.empty() ? nil : fileUrl(copy);
  const bool copied =
      from && to && [NSFileManager.defaultManager copyItemAtURL:from toURL:to error:nil];
  return copied ? copy : std::string();
}

} // namespace tavrel
