#pragma once

#include "platform/HotKeys.h"

#include <set>

namespace tavrel {

/// Tells releases of hot keys apart where a desktop tells of each on two ways, in either order: a
/// key can be released once for each time that it was pressed.
class HotKeyReleases {
public:
  void pressed(EventHotKeyRef reference) { released_.erase(reference); }

  /// Whether the release is news.
  [[nodiscard]] bool isFirst(EventHotKeyRef reference) {
    return released_.insert(reference).second;
  }

private:
  std::set<EventHotKeyRef> released_;
};

} // namespace tavrel
