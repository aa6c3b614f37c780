#pragma once

#include "base/PropertyList.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace tavrel {

/// Bytes that many may hold. Small ones are overwritten before their memory is given back: a
/// password may have been among them.
using SharedBytes = std::shared_ptr<const Bytes>;
[[nodiscard]] SharedBytes sharedBytes(Bytes bytes);

/// What a clipboard holds: names in order, and the data of some.
struct ClipboardContents {
  std::vector<std::string> names;
  std::map<std::string, SharedBytes> data;

  [[nodiscard]] bool offers(const std::string& name) const;
  /// Null when there is none.
  [[nodiscard]] SharedBytes dataOf(const std::string& name) const;
  /// Whether every name has data.
  [[nodiscard]] bool isWhole() const { return data.size() >= names.size(); }
};

/// What a pasteboard is cleared to: an empty string and nothing else.
[[nodiscard]] bool isCleared(const ClipboardContents& contents);

/// Whether putting this data under a name leaves what other programs read as it is. Names without
/// native data of their own do not reach them.
[[nodiscard]] bool agrees(const ClipboardContents& contents, const std::string& name,
                          const Bytes& data);

} // namespace tavrel
