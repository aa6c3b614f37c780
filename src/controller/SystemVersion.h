#pragma once

#include "controller/ProcessState.h"

namespace tavrel {

/// 10.4: recent items exist, a link can be asked about without being followed.
[[nodiscard]] inline bool hasRecentItems() {
  return gOsVersion >= 0x1040;
}

/// 10.6: files are found again through bookmarks.
[[nodiscard]] inline bool hasBookmarks() {
  return gOsVersion > 0x105F;
}

} // namespace tavrel
