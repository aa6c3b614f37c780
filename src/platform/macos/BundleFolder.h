#pragma once

#import "platform/macos/Conversions.h"

namespace tavrel {

/// The bundle in a folder, the application's own for the empty path; nil where no folder is.
[[nodiscard]] inline NSBundle* bundleIn(const std::string& folder) {
  return folder.empty() ? NSBundle.mainBundle : [NSBundle bundleWithPath:nsString(folder)];
}

} // namespace tavrel
