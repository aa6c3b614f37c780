#pragma once

#include "base/PropertyList.h"

#include <memory>
#include <optional>

#include <plist/plist.h>

namespace tavrel {

struct PlistNodeFree {
  void operator()(plist_t node) const { plist_free(node); }
};

/// A value tree of libplist, owned.
using PlistNode = std::unique_ptr<void, PlistNodeFree>;

/// The value of a tree; nothing when it holds a kind of node that PropertyList does not have (a
/// UID).
[[nodiscard]] std::optional<PropertyList> valueOfNode(plist_t root);

/// The tree of a value, text made well-formed; null when it nests deeper than
/// `deepestPropertyList`.
[[nodiscard]] PlistNode nodeOfValue(const PropertyList& value);

} // namespace tavrel
