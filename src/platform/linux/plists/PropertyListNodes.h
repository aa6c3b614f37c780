#pragma once

#include "base/PropertyList.h"

#include <memory>
#include <optional>

#include <plist/plist.h>

namespace tavrel {

struct PlistNodeFree {
  void operator()(plist_t node) const { plist_free(node); }
};

/// A tree of the library's, owned.
using PlistNode = std::unique_ptr<void, PlistNodeFree>;

/// The value of a tree; nothing when it holds a kind that property lists of ours do not.
[[nodiscard]] std::optional<PropertyList> valueOfNode(plist_t root);

/// The tree of a value, text made well-formed; null when it nests too deep for the library.
[[nodiscard]] PlistNode nodeOfValue(const PropertyList& value);

} // namespace tavrel
