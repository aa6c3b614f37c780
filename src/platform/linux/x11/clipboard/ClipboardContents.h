#pragma once

#include "base/PropertyList.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace tavrel {

/// Bytes with shared ownership. Small ones are zeroed before their memory is freed: they may have
/// been a password.
using SharedBytes = std::shared_ptr<const Bytes>;
[[nodiscard]] SharedBytes sharedBytes(Bytes bytes);

/// What a clipboard holds: the names of pasteboard types in order, and the data of some.
struct ClipboardContents {
  std::vector<std::string> names;
  std::map<std::string, SharedBytes> data;

  [[nodiscard]] bool offers(const std::string& name) const;
  /// Null when there is none.
  [[nodiscard]] SharedBytes dataOf(const std::string& name) const;
  /// Whether every name has data.
  [[nodiscard]] bool isWhole() const { return data.size() >= names.size(); }
};

/// Whether the contents are those of a cleared pasteboard: an empty string and nothing else.
[[nodiscard]] bool isCleared(const ClipboardContents& contents);

/// Whether other programs read the same after this data has been set under a name. Types that are
/// no X11 target do not reach them where the contents have such targets.
[[nodiscard]] bool leavesAsRead(const ClipboardContents& contents, const std::string& name,
                                const Bytes& data);

} // namespace tavrel
